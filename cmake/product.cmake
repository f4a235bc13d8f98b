# tolvane_product: the program's company, copyright, home page and version, set only here and in project(VERSION).
# It feeds the settings record, the version resources, the manifest and the release's files.
# Settings files are known as ours by the maker's name in their copyright line, so a change of the name
# cuts users off from theirs.
set(TOLVANE_COMPANY "Tolvane Project")
set(TOLVANE_COPYRIGHT "Copyright (C) 2026 ${TOLVANE_COMPANY}")
set(TOLVANE_HOME_PAGE "https://tolvane.example/")

# Settings files hold the version as one number, 100 times what is displayed: 1.23 as 123.
if(NOT PROJECT_VERSION MATCHES "^([0-9]+)\\.([0-9][0-9])$")
  message(FATAL_ERROR "The version ${PROJECT_VERSION} is not of the form 1.23")
endif()
set(TOLVANE_MAJOR ${CMAKE_MATCH_1})
string(REGEX REPLACE "^0" "" TOLVANE_MINOR ${CMAKE_MATCH_2})
math(EXPR TOLVANE_VERSION_NUMBER "100 * ${TOLVANE_MAJOR} + ${TOLVANE_MINOR}")
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
  set(TOLVANE_ARCH x86)
  set(TOLVANE_BITS 32)
else()
  set(TOLVANE_ARCH x64)
  set(TOLVANE_BITS 64)
endif()

set(tolvane_product_folder "${CMAKE_BINARY_DIR}/product")
foreach(file tolvane_product.h tolvane_version_info.rc tolvane.manifest version.txt)
  configure_file("${CMAKE_CURRENT_LIST_DIR}/product/${file}.in" "${tolvane_product_folder}/${file}" @ONLY)
endforeach()
configure_file("${CMAKE_SOURCE_DIR}/docs/release/README.txt.in" "${tolvane_product_folder}/README.txt" @ONLY)

add_library(tolvane_product INTERFACE)
target_include_directories(tolvane_product INTERFACE "${tolvane_product_folder}")
