# Cross-compiling for 64-bit Windows with MinGW-w64 (the posix-threads flavour, whose libstdc++
# has std::thread and std::mutex). The programs run on Windows, or under Wine for the tests.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(VELMORA_MINGW_TRIPLET x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${VELMORA_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${VELMORA_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${VELMORA_MINGW_TRIPLET}-windres)

# Headers and libraries come from the MinGW-w64 tree only, never from the build machine.
set(CMAKE_FIND_ROOT_PATH /usr/${VELMORA_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Tests and test discovery run the Windows programs through Wine when it is there.
find_program(VELMORA_WINE NAMES wine64 wine PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(VELMORA_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${VELMORA_WINE})
endif()
