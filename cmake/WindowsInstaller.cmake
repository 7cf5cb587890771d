# `installer`: the setup program, made by Debian's NSIS. It installs for the
# current user alone, into a folder of that user's, so no administrator rights are
# needed and the catalogue file beside the program stays editable.
find_program(TOS_MAKENSIS makensis REQUIRED)

set(TOS_SETUP ${CMAKE_BINARY_DIR}/TolvarineObjectScripter-${PROJECT_VERSION}-setup.exe)
set(TOS_SETUP_CLI $<TARGET_FILE:tos-cli>)
set(TOS_SETUP_DEPENDS tos-cli tos_icon)
set(TOS_SETUP_DEFINES)
if(TARGET TolvarineObjectScripter)
    list(APPEND TOS_SETUP_DEPENDS TolvarineObjectScripter)
    list(APPEND TOS_SETUP_DEFINES "-DGUI_EXE=$<TARGET_FILE:TolvarineObjectScripter>")
endif()

configure_file(${PROJECT_SOURCE_DIR}/resources/installer.nsi.in
               ${CMAKE_BINARY_DIR}/installer.nsi @ONLY)
add_custom_command(OUTPUT ${TOS_SETUP}
    COMMAND ${TOS_MAKENSIS} -V2 -DCLI_EXE=${TOS_SETUP_CLI} ${TOS_SETUP_DEFINES}
            ${CMAKE_BINARY_DIR}/installer.nsi
    DEPENDS ${TOS_SETUP_DEPENDS} ${CMAKE_BINARY_DIR}/installer.nsi
            ${PROJECT_SOURCE_DIR}/resources/TOS_Help.html
            ${PROJECT_SOURCE_DIR}/resources/TolvarineObjectScripter.ini
    COMMENT "Making the setup program" VERBATIM)
add_custom_target(installer DEPENDS ${TOS_SETUP})
