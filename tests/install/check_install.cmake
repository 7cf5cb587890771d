# Run by CTest: installs BUILD_DIR into PREFIX and checks that the installed
# tos-cli, started through its link on PATH, finds its files beside itself.

function(expect_file path)
    if(NOT EXISTS "${path}")
        message(FATAL_ERROR "not installed: ${path}")
    endif()
endfunction()

function(run_cli out_var)
    execute_process(COMMAND ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT status EQUAL 0 OR NOT err STREQUAL "")
        message(FATAL_ERROR "${ARGN}\nexit status ${status}\nstderr: ${err}")
    endif()
    set(${out_var} "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${PREFIX}"
    RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE err)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "cmake --install failed (${status}): ${err}")
endif()

set(home "${PREFIX}/${INSTALL_DIR}")
foreach(file tos-cli TolvarineObjectScripter.ini TOS_Help.html)
    expect_file("${home}/${file}")
endforeach()
set(cli "${PREFIX}/${BIN_DIR}/tos-cli")
if(NOT IS_SYMLINK "${cli}")
    message(FATAL_ERROR "not a link on PATH: ${cli}")
endif()

run_cli(version "${cli}" --version)
if(NOT version STREQUAL "tos-cli ${VERSION}\n")
    message(FATAL_ERROR "unexpected version text: '${version}'")
endif()

# The installed program must list the same objects as the one in the build tree.
run_cli(installed "${cli}" objects "${PROJECT_FILE}")
run_cli(built "${BUILD_CLI}" objects "${PROJECT_FILE}")
if(installed STREQUAL "" OR NOT installed STREQUAL built)
    message(FATAL_ERROR "installed object list:\n${installed}\nbuild tree's:\n${built}")
endif()

# Started through its link, the program reads the catalogue file in its own folder:
# one that promises an item it lacks must bring the message about that item.
file(WRITE "${home}/TolvarineObjectScripter.ini" "[MiscStockObjects]\r\nTotalItems=1\r\n")
execute_process(COMMAND "${cli}" objects "${PROJECT_FILE}"
    RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE err)
if(NOT status EQUAL 1 OR NOT err MATCHES "Item_1")
    message(FATAL_ERROR "installed catalogue file not read: status ${status}, stderr: ${err}")
endif()
file(REMOVE_RECURSE "${PREFIX}")
