# Builds for Windows x86-64 with the mingw-w64 cross compiler, the variant with POSIX threads: the
# other has no std::mutex.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

# Programs are this machine's; headers, libraries and packages are the other's, and nothing else.
set(CMAKE_FIND_ROOT_PATH /usr/${triplet})
if(DEFINED ENV{VELMORA_WINDOWS})
    foreach(prefix sdl3 qt6 googletest)
        list(PREPEND CMAKE_FIND_ROOT_PATH $ENV{VELMORA_WINDOWS}/${prefix})
    endforeach()
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
