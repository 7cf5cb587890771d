# Cross-build for 64-bit Windows with Debian's mingw-w64 (POSIX threads variant,
# which std::thread and <mutex> need).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(TOS_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${TOS_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TOS_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${TOS_MINGW_PREFIX}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${TOS_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# The programs need no DLL that Windows does not ship.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
