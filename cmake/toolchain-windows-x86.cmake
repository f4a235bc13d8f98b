set(TOLVANE_MINGW_PREFIX i686)
include("${CMAKE_CURRENT_LIST_DIR}/mingw-toolchain.cmake")
