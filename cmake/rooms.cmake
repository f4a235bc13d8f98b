# A folder of src/ is a room: one library that holds all its .cpp files and nothing else, named by its path.
# src/receive/tables is the room receive/tables and the target tolvane_receive_tables.
#
# tests/floors/floors.txt says which rooms a room may include.

# tolvane_room_target(variable ROOM): the target of a room.
function(tolvane_room_target variable room)
  string(REPLACE "/" "_" name "tolvane_${room}")
  set(${variable} "${name}" PARENT_SCOPE)
endfunction()

# tolvane_room([LEAVES_OUT FILES...] [USES ROOMS...]): makes the calling folder a room. USES names the rooms
# whose functions it calls; LEAVES_OUT the files that are for another system.
function(tolvane_room)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "LEAVES_OUT;USES")
  file(RELATIVE_PATH room "${CMAKE_SOURCE_DIR}/src" "${CMAKE_CURRENT_SOURCE_DIR}")
  tolvane_room_target(name "${room}")
  set(used "")
  foreach(other IN LISTS arg_USES)
    tolvane_room_target(target "${other}")
    list(APPEND used ${target})
  endforeach()
  # A new file is seen when CMake runs, as the scripts have it do each time. Asked to look at every build
  # (CONFIGURE_DEPENDS), ninja could not tell any more whether there is something to build.
  file(GLOB sources RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" "*.cpp")
  list(REMOVE_ITEM sources ${arg_LEAVES_OUT})
  if(sources)
    tolvane_library(${name} SOURCES ${sources} USES ${used})
  else()
    # A room of headers.
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(${name} INTERFACE ${used})
  endif()
endfunction()
