set(TOLVANE_MINGW_PREFIX x86_64)
include("${CMAKE_CURRENT_LIST_DIR}/mingw-toolchain.cmake")
