# What runs a program of this build on this machine.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
  set(tolvane_runner x86-run)
else()
  set(tolvane_runner wine-run)
endif()

# GoogleTest: Debian's library natively, its source package compiled here for Windows.
if(WIN32)
  set(gtest_force_shared_crt ON)
  add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
  if(NOT TARGET GTest::gtest_main)
    add_library(GTest::gtest_main ALIAS gtest_main)
  endif()
  # Without any optimizer its many small sections would cost each test's linking two seconds.
  foreach(library gtest gtest_main gmock)
    target_compile_options(${library} PRIVATE -O1 -g0)
  endforeach()
else()
  find_package(GTest REQUIRED)
endif()
include(GoogleTest)

# What every test is compiled with. The tests' own code needs no optimizer, and without it compiles in
# half the time. Nobody debugs the Windows ones under Wine, and without symbols they compile and link faster.
add_library(tolvane_test_options INTERFACE)
target_link_libraries(tolvane_test_options INTERFACE tolvane_options GTest::gtest_main GTest::gmock)
if(WIN32)
  target_compile_options(tolvane_test_options INTERFACE -O0 -g0)
  target_link_options(tolvane_test_options INTERFACE -s)
else()
  target_compile_options(tolvane_test_options INTERFACE -O0 -g1)
endif()

# Most of what is left goes into reading these headers, so all tests share one reading of them.
add_library(tolvane_test_headers OBJECT "${CMAKE_SOURCE_DIR}/tests/test_headers.cpp")
target_link_libraries(tolvane_test_headers PRIVATE tolvane_test_options)
set_target_properties(tolvane_test_headers PROPERTIES TOLVANE_IS_TEST ON)
target_precompile_headers(tolvane_test_headers PRIVATE <gtest/gtest.h> <filesystem> <fstream>)

# tolvane_test(name [ENTRIES prefix] SOURCES ... USES ...): one test binary. A ctest entry per case natively, whose name
# begins with the prefix; one per binary where the start of a process costs: seconds under Wine, and with sanitizers
# more than most cases.
function(tolvane_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "ENTRIES" "SOURCES;USES")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_USES} tolvane_test_options)
  set_target_properties(${name} PROPERTIES TOLVANE_IS_TEST ON)
  target_precompile_headers(${name} REUSE_FROM tolvane_test_headers)
  if(WIN32)
    add_test(NAME ${name} COMMAND "${CMAKE_SOURCE_DIR}/scripts/lib/${tolvane_runner}"
                                  $<TARGET_FILE:${name}>)
  elseif(TOLVANE_SANITIZE)
    add_test(NAME ${name} COMMAND ${name})
  else()
    gtest_discover_tests(${name} TEST_PREFIX "${arg_ENTRIES}" DISCOVERY_TIMEOUT 60)
  endif()
endfunction()

# tolvane_uses_desktop(TESTS...): tests with windows, a clipboard or servers of the one desktop that there is, which
# do not run beside each other.
function(tolvane_uses_desktop)
  if(WIN32)
    set_tests_properties(${ARGN} PROPERTIES RESOURCE_LOCK desktop)
  endif()
endfunction()

# tolvane_check(folder script ARGS...): a Python script of this folder that checks the sources, or tests
# such a script. Once is enough, so the Windows builds leave it out.
function(tolvane_check folder script)
  if(WIN32)
    return()
  endif()
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  add_test(NAME ${folder}.${script}
           COMMAND Python3::Interpreter -B "${CMAKE_CURRENT_SOURCE_DIR}/${script}" ${ARGN})
  # Each bash complains of a locale that the machine lacks, such as one that came by ssh.
  set_tests_properties(${folder}.${script} PROPERTIES ENVIRONMENT LC_ALL=C.UTF-8)
endfunction()

# The target `fuzzers` builds all fuzz targets and nothing else.
if(TOLVANE_SANITIZE)
  add_custom_target(fuzzers)
endif()

# tolvane_fuzz(name SECONDS n LONGEST bytes SOURCES ... USES ... [CORPUS folder]): a fuzz target of the preset
# native-sanitize. Its test plays the corpus and then tries 20,000 mutations of up to LONGEST bytes with a fixed seed,
# but ends after SECONDS, which are dealt out by what is at stake: most to a whole run, least to the simulator's files.
# An input that takes a minute hangs. tests/fuzz/run searches on.
function(tolvane_fuzz name)
  if(NOT TOLVANE_SANITIZE)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "SECONDS;LONGEST;CORPUS" "SOURCES;USES")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_USES} tolvane_options)
  target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzzers ${name})
  # New finds go to the first folder, never into the sources.
  set(found "${CMAKE_CURRENT_BINARY_DIR}/${name}-found")
  file(MAKE_DIRECTORY "${found}")
  set(corpus "")
  if(arg_CORPUS)
    set(corpus "${CMAKE_CURRENT_SOURCE_DIR}/${arg_CORPUS}")
  endif()
  add_test(NAME fuzz.${name} COMMAND ${name} -runs=20000 -seed=1 -max_total_time=${arg_SECONDS} -timeout=60
                                     -max_len=${arg_LONGEST} -artifact_prefix=${found}/ ${found} ${corpus})
endfunction()
