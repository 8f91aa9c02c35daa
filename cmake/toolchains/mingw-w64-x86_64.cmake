# Cross-compiles for 64-bit Windows with Debian's MinGW-w64 (posix threads). The binaries run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(OSTREL_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${OSTREL_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${OSTREL_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${OSTREL_MINGW_PREFIX}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${OSTREL_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The GCC runtime is linked in, so that the DLL and the executables need no MinGW DLLs beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")

# ctest runs the Windows test executables through Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../run-under-wine.sh)
