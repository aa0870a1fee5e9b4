# Windows (x86_64) by Debian's MinGW-w64; scripts/windows.sh uses it. TABRIX_QT_WINDOWS is the folder of a Qt for
# Windows; QT_HOST_PATH that of the same version for this machine, whose moc and help generator do the work.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The flavour with POSIX threads: std::mutex needs them.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# What CMake compiles on trial is configured anew and has to be told.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TABRIX_QT_WINDOWS)
set(TABRIX_QT_WINDOWS "$ENV{TABRIX_QT_WINDOWS}" CACHE PATH "Folder of Qt for Windows")
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
if(TABRIX_QT_WINDOWS) # empty while Qt itself is built
    list(APPEND CMAKE_FIND_ROOT_PATH ${TABRIX_QT_WINDOWS})
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(QT_HOST_PATH /usr CACHE PATH "Folder of the same Qt for this machine")
if(EXISTS ${QT_HOST_PATH}/lib/x86_64-linux-gnu/cmake)
    set(QT_HOST_PATH_CMAKE_DIR ${QT_HOST_PATH}/lib/x86_64-linux-gnu/cmake)
endif()

# ctest starts the tests through it.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine.sh)
