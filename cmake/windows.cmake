# Toolchain for Windows on x86-64, by GCC of MinGW-w64 on another system (Debian: g++-mingw-w64-x86-64). The threads
# are those of POSIX, as the C++ library has std::thread over no other.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(mingw x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw}-windres)

# What is found is for Windows: in the compiler's own tree, and in UOM_WINDOWS_PACKAGES. Programs are those at work.
set(UOM_WINDOWS_PACKAGES "" CACHE PATH "Headers and libraries for Windows, laid out as in /usr")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES UOM_WINDOWS_PACKAGES)
set(CMAKE_FIND_ROOT_PATH /usr/${mingw} ${UOM_WINDOWS_PACKAGES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs bring the compiler's run time along, and run without its DLLs.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
