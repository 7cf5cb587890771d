# Installation: both programs, the help page and the catalogue file share one
# folder, because the programs look for the last two beside themselves. Links in
# bin/ put the programs on PATH; each finds its real folder through the link.
set(TOS_RESOURCES_DIR ${PROJECT_SOURCE_DIR}/resources)

install(TARGETS tos-cli RUNTIME DESTINATION ${TOS_INSTALL_DIR})
set(TOS_LINKED_PROGRAMS "tos-cli=tos-cli")
if(TARGET TolvarineObjectScripter)
    install(TARGETS TolvarineObjectScripter RUNTIME DESTINATION ${TOS_INSTALL_DIR})
    list(APPEND TOS_LINKED_PROGRAMS "tolvarine-object-scripter=TolvarineObjectScripter")
endif()
install(FILES ${TOS_RESOURCES_DIR}/TolvarineObjectScripter.ini ${TOS_RESOURCES_DIR}/TOS_Help.html
        DESTINATION ${TOS_INSTALL_DIR})

# Relative links, so the tree works under any prefix and inside the package.
set(TOS_LINK_DIR ${CMAKE_BINARY_DIR}/install-links)
file(MAKE_DIRECTORY ${TOS_LINK_DIR})
file(RELATIVE_PATH TOS_BIN_TO_INSTALL_DIR /prefix/${CMAKE_INSTALL_BINDIR}
              /prefix/${TOS_INSTALL_DIR})
foreach(pair IN LISTS TOS_LINKED_PROGRAMS)
    string(REPLACE "=" ";" pair "${pair}")
    list(GET pair 0 link)
    list(GET pair 1 program)
    file(CREATE_LINK ${TOS_BIN_TO_INSTALL_DIR}/${program} ${TOS_LINK_DIR}/${link} SYMBOLIC)
    install(FILES ${TOS_LINK_DIR}/${link} DESTINATION ${CMAKE_INSTALL_BINDIR})
endforeach()

if(TARGET TolvarineObjectScripter)
    install(FILES ${TOS_RESOURCES_DIR}/tolvarine-object-scripter.desktop
            DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES ${TOS_RESOURCES_DIR}/tolvarine-object-scripter.svg
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()

# Debian package: `cpack -G DEB` in a build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tolvarine-object-scripter)
set(CPACK_PACKAGE_VENDOR "Tolvarine Object Scripter team")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
    "Reads a Tolvarine terrain scene and writes MAXScript files that merge an\n"
    "object into 3ds Max and place a copy of it wherever the scene has that\n"
    "object. A second window, and the command-line tool tos-cli, join such\n"
    "scripts into one.")
set(CPACK_PACKAGE_INSTALL_DIRECTORY tolvarine-object-scripter)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Tolvarine Object Scripter team")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries come from the binaries; Qt's window system plugins are only
# loaded at run time, and the forms' faces (or their metric-compatible
# stand-ins) only looked up, so both are named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(TARGET TolvarineObjectScripter)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-liberation")
endif()
include(CPack)
