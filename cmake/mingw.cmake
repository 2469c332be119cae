# Toolchain that builds the core for 64-bit Windows on Debian; scripts/prepare-mingw makes the prefix with
# what the core needs. Tests run under wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)

set(TAVORINE_MINGW_PREFIX ${CMAKE_CURRENT_LIST_DIR}/../build/mingw-prefix)
set(CMAKE_FIND_ROOT_PATH ${TAVORINE_MINGW_PREFIX} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${TAVORINE_MINGW_PREFIX}/lib/pkgconfig:/usr/x86_64-w64-mingw32/lib/pkgconfig)
set(Boost_NO_BOOST_CMAKE ON) # Debian's own file leads to the headers of Linux

set(CMAKE_EXE_LINKER_FLAGS_INIT -static) # a program that needs no compiler's library beside it
