# Version information and the icon for Windows programs, so Explorer shows both.
# tos_add_windows_resources(target DESCRIPTION text) gives target a resource file
# of its own; the icon is drawn once from the program's SVG.
find_program(TOS_RSVG_CONVERT rsvg-convert REQUIRED)
find_program(TOS_ICOTOOL icotool REQUIRED)

set(TOS_ICON_SVG ${PROJECT_SOURCE_DIR}/resources/tolvarine-object-scripter.svg)
set(TOS_ICON_DIR ${CMAKE_BINARY_DIR}/icon)
set(TOS_ICON ${TOS_ICON_DIR}/tolvarine-object-scripter.ico)
set(TOS_ICON_SIZES 16 24 32 48 64 256)
set(TOS_ICON_PNGS)
foreach(size IN LISTS TOS_ICON_SIZES)
    set(png ${TOS_ICON_DIR}/icon-${size}.png)
    add_custom_command(OUTPUT ${png}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${TOS_ICON_DIR}
        COMMAND ${TOS_RSVG_CONVERT} -w ${size} -h ${size} -o ${png} ${TOS_ICON_SVG}
        DEPENDS ${TOS_ICON_SVG} VERBATIM)
    list(APPEND TOS_ICON_PNGS ${png})
endforeach()
# The largest image is stored as PNG inside the icon, as Windows expects.
list(REMOVE_ITEM TOS_ICON_PNGS ${TOS_ICON_DIR}/icon-256.png)
add_custom_command(OUTPUT ${TOS_ICON}
    COMMAND ${TOS_ICOTOOL} -c -o ${TOS_ICON} ${TOS_ICON_PNGS} -r ${TOS_ICON_DIR}/icon-256.png
    DEPENDS ${TOS_ICON_PNGS} ${TOS_ICON_DIR}/icon-256.png VERBATIM)
add_custom_target(tos_icon DEPENDS ${TOS_ICON})

function(tos_add_windows_resources target)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "DESCRIPTION" "")
    get_target_property(output_name ${target} OUTPUT_NAME)
    if(NOT output_name)
        set(output_name ${target})
    endif()
    set(TOS_RC_DESCRIPTION "${ARG_DESCRIPTION}")
    set(TOS_RC_FILE_NAME "${output_name}.exe")
    set(TOS_RC_INTERNAL_NAME "${output_name}")
    set(TOS_RC_ICON "${TOS_ICON}")
    set(rc ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/windows_resources.rc.in ${rc} @ONLY)
    set_source_files_properties(${rc} PROPERTIES OBJECT_DEPENDS ${TOS_ICON})
    target_sources(${target} PRIVATE ${rc})
    add_dependencies(${target} tos_icon)
endfunction()
