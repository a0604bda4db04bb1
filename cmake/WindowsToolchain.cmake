# Builds for 64-bit Windows with MinGW-w64 and runs what was built by Wine, as Debian packages both.
# POSIX threads: the other thread model has no <mutex>. Linked statically, a program needs no DLL
# beside it. The stack is that of the other systems: a data set takes 200 kB, of which 2 MB hold few.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--stack,8388608")

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Wine keeps its drives and registry in the build folder, draws nothing, and writes no menu entries
# into the user's home.
find_program(ORVANE_WINE NAMES wine64 wine PATHS /usr/lib/wine REQUIRED)
find_program(ORVANE_WINESERVER NAMES wineserver64 wineserver PATHS /usr/lib/wine REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR
  "${CMAKE_COMMAND}" -E env --unset=DISPLAY "WINEPREFIX=${CMAKE_BINARY_DIR}/wine" WINEDEBUG=-all
  "WINEDLLOVERRIDES=mscoree,mshtml,winemenubuilder.exe=" "${ORVANE_WINE}")
