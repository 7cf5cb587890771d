# The programs look for the help page and the stock catalogue file in their own
# folder, so each executable gets a copy beside it in the build tree. A changed
# source file is copied again at the next build.
set(TOS_RESOURCE_FILES TOS_Help.html TolvarineObjectScripter.ini)

function(tos_place_resources target)
    get_target_property(dir ${target} RUNTIME_OUTPUT_DIRECTORY)
    if(NOT dir)
        get_target_property(dir ${target} BINARY_DIR)
    endif()
    foreach(file IN LISTS TOS_RESOURCE_FILES)
        configure_file(${PROJECT_SOURCE_DIR}/resources/${file} ${dir}/${file} COPYONLY)
    endforeach()
endfunction()
