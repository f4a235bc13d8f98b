# The controls' numbers have one list, resource.h, which the resource compiler reads too.
set(tolvane_resource_header "${CMAKE_SOURCE_DIR}/src/platform/windows/resources/resource.h")

# tolvane_control_rows(variable row): a text with one row per symbol, in which \1 stands for the symbol and
# \2 for its number.
function(tolvane_control_rows variable row)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${tolvane_resource_header}")
  file(STRINGS "${tolvane_resource_header}" definitions REGEX "^#define [A-Za-z_0-9]+ [0-9]+$")
  set(rows "")
  foreach(definition IN LISTS definitions)
    string(REGEX REPLACE "^#define ([^ ]+) ([0-9]+)$" "${row}\n" line "${definition}")
    string(APPEND rows "${line}")
  endforeach()
  set(${variable} "${rows}" PARENT_SCOPE)
endfunction()
