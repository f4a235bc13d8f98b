# tolvane_options: what every target of the project is compiled with.
#
# Warnings are errors in project code; code of others (GoogleTest) is included as SYSTEM.
add_library(tolvane_options INTERFACE)
target_compile_features(tolvane_options INTERFACE cxx_std_20)

set(tolvane_warnings
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wundef -Wold-style-cast -Woverloaded-virtual
    -Wimplicit-fallthrough -Wcast-function-type)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  list(APPEND tolvane_warnings -Wsuggest-override -Wduplicated-cond -Wlogical-op)
endif()
target_compile_options(tolvane_options INTERFACE ${tolvane_warnings} -Werror)

if(WIN32)
  target_compile_definitions(tolvane_options INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
                                                       WINVER=0x0601 _WIN32_WINNT=0x0601)
  # The same commit gives the same file in any folder at any time.
  target_compile_options(tolvane_options INTERFACE "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.")
  target_link_options(
    tolvane_options INTERFACE
    # The program folder holds no run-time libraries of the compiler.
    -static
    # Windows 7 and later.
    -Wl,--major-os-version=6,--minor-os-version=1
    -Wl,--major-subsystem-version=6,--minor-subsystem-version=1
    # An address that nobody foresees, and data that nobody executes. The linker's defaults are the same
    # today.
    -Wl,--dynamicbase,--nxcompat
    -Wl,--no-insert-timestamp)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
    # 4 GB of addresses on a 64-bit Windows, half of them with the highest bit set.
    target_link_options(tolvane_options INTERFACE -Wl,--large-address-aware)
  else()
    target_link_options(tolvane_options INTERFACE -Wl,--high-entropy-va)
  endif()
endif()

# The x86 compiler keeps doubles in the wider x87 registers by default, so that a cycle exactly on a
# threshold would be late in one program and not in the other. long double stays with the x87 unit.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
  target_compile_options(tolvane_options INTERFACE -msse2 -mfpmath=sse)
endif()

if(TOLVANE_SANITIZE)
  set(tolvane_sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all
                         -fno-omit-frame-pointer)
  target_compile_options(tolvane_options INTERFACE ${tolvane_sanitizers})
  # An index beyond an array within an object stays within the object, unseen by the sanitizers.
  target_compile_definitions(tolvane_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(tolvane_options INTERFACE ${tolvane_sanitizers})
  # A fuzzer finds its way by what its inputs reach of the program, not of the target alone; no fuzzer runs the tests.
  set(tolvane_uninstrumented "${CMAKE_SOURCE_DIR}/tests/fuzz/uninstrumented.txt")
  set(tolvane_unguided "${CMAKE_SOURCE_DIR}/tests/fuzz/unguided.txt")
  set(is_fuzzed $<NOT:$<BOOL:$<TARGET_PROPERTY:TOLVANE_IS_TEST>>>)
  foreach(option -fsanitize=fuzzer-no-link -fsanitize-ignorelist=${tolvane_uninstrumented}
                 -fsanitize-coverage-ignorelist=${tolvane_uninstrumented}
                 -fsanitize-coverage-ignorelist=${tolvane_unguided})
    target_compile_options(tolvane_options INTERFACE $<${is_fuzzed}:${option}>)
  endforeach()
  target_link_options(tolvane_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Half of the time of compiling one file goes into reading these headers, so all libraries share one reading of
# them. The scripts, which compile the files of a target together (CMAKE_UNITY_BUILD), do without it: with it the
# program differs from build to build.
if(NOT CMAKE_UNITY_BUILD)
  add_library(tolvane_standard_headers OBJECT "${CMAKE_CURRENT_LIST_DIR}/standard_headers.cpp")
  target_link_libraries(tolvane_standard_headers PRIVATE tolvane_options)
  target_precompile_headers(tolvane_standard_headers PRIVATE <algorithm> <array> <functional> <optional> <string>
                            <string_view> <vector>)
endif()

# tolvane_alone(FILES...): files that are never compiled together with others of their target, as names of their
# own are a neighbour's names too.
function(tolvane_alone)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# tolvane_library(name SOURCES ... USES ...): a static library that sees the contracts of src/platform.
function(tolvane_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES")
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  target_link_libraries(${name} PUBLIC ${arg_USES} PRIVATE tolvane_options)
  if(TARGET tolvane_standard_headers)
    target_precompile_headers(${name} REUSE_FROM tolvane_standard_headers)
  endif()
endfunction()

# The target `program` is what scripts/build leaves behind: the program's folder and, beside it, the
# folder of the simulated libraries.
if(WIN32)
  add_custom_target(program)
endif()

# tolvane_program_file(target FOLDER): puts an executable or library, without "lib" before its name,
# into build/windows-*/FOLDER/ (program or simulator).
function(tolvane_program_file target folder)
  set_target_properties(
    ${target} PROPERTIES PREFIX "" RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${folder}"
                         LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${folder}")
  add_dependencies(program ${target})
endfunction()
