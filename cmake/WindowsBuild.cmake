# The cross-build for Windows: no Qt windows and no benchmarks, the libraries
# Debian ships as sources or headers, and the tests run through Wine.
set(TOS_BUILD_GUI OFF CACHE BOOL "Build the Qt desktop program" FORCE)
set(TOS_BUILD_BENCH OFF CACHE BOOL "Build the benchmarks" FORCE)

# CLI11 is header-only; its folder is offered alone, since /usr/include as a
# whole would bring the host's C library in.
set(TOS_CLI11_INCLUDE ${CMAKE_BINARY_DIR}/cli11-include)
file(MAKE_DIRECTORY ${TOS_CLI11_INCLUDE})
file(CREATE_LINK /usr/include/CLI ${TOS_CLI11_INCLUDE}/CLI SYMBOLIC)
add_library(CLI11::CLI11 INTERFACE IMPORTED)
set_target_properties(CLI11::CLI11 PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${TOS_CLI11_INCLUDE})

# Every test program runs under Wine, in a prefix of this build's own. The tests
# are listed when they run, not at build time, so a build needs no Wine.
find_program(TOS_WINE wine REQUIRED)
set(TOS_WINE_PREFIX ${CMAKE_BINARY_DIR}/wineprefix)
set(CMAKE_CROSSCOMPILING_EMULATOR
    ${CMAKE_COMMAND} -E env WINEPREFIX=${TOS_WINE_PREFIX} WINEDEBUG=-all
    WINEDLLOVERRIDES=mscoree,mshtml= ${TOS_WINE})
set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST)

# The programs link only against what every Windows ships.
add_compile_definitions(WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)

include(${CMAKE_CURRENT_LIST_DIR}/WindowsResources.cmake)
