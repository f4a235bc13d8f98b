# Shared by both Windows tool chains; TOLVANE_MINGW_PREFIX is the triple's first word.
# The -posix variants are needed: the win32-threads ones cannot compile GoogleTest.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${TOLVANE_MINGW_PREFIX})
set(tolvane_triple ${TOLVANE_MINGW_PREFIX}-w64-mingw32)
set(CMAKE_C_COMPILER ${tolvane_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${tolvane_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${tolvane_triple}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${tolvane_triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
