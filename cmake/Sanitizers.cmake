# Instrumented builds. Sanitizers only see what was compiled with them, so the
# flags go to every target of the build, not to a chosen few.
option(TOS_SANITIZE "Build everything with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(TOS_BUILD_FUZZ "Build the libFuzzer targets in fuzz/ (needs clang)" OFF)

if(TOS_SANITIZE OR TOS_BUILD_FUZZ)
    # Halt at the first report, so a finding cannot scroll past unnoticed.
    set(tos_sanitizers address,undefined)
    add_compile_options(-fsanitize=${tos_sanitizers} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${tos_sanitizers} -fno-sanitize-recover=all)
    # g++ 12 warns falsely about uninitialised members inside std::regex and
    # std::function once the code is instrumented; the ordinary build keeps the warning.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
endif()

if(TOS_BUILD_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "TOS_BUILD_FUZZ needs clang (libFuzzer); configure with "
                            "-DCMAKE_CXX_COMPILER=clang++-14")
    endif()
    # Coverage feedback for the whole core; only the fuzz programs link libFuzzer's main.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
