# How tests are built, and told to ctest.
find_package(GTest REQUIRED)

# Tests should compile fast. A failed one needs no more debug information than line numbers: that of
# its variables would cost a fifth of the compile time. Optimisation, together with sanitizers, would
# cost up to two thirds and save next to nothing when the test runs. The library is optimised as its
# preset says. The warnings are false ones that g++ 12 gives about short texts when it optimises.
set(VELLOMARK_TEST_OPTIONS
    "$<$<CONFIG:Debug>:-g1>" "$<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-array-bounds>"
    "$<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow;-Wno-stringop-overread>")
if(VELLOMARK_BUILD_FUZZ)
  # The engine should follow the code of the library, not that of the checks.
  list(APPEND VELLOMARK_TEST_OPTIONS -fno-sanitize=fuzzer-no-link)
else()
  list(APPEND VELLOMARK_TEST_OPTIONS "$<$<CONFIG:Debug>:-O0>")
endif()

# Compiles once what nearly every test includes, which halves the time of building them. A
# program, as the headers have to be compiled with the options of the programs that use them.
vellomark_add_program(test_headers "${PROJECT_SOURCE_DIR}/tests/support/test_headers.cpp")
target_compile_options(vellomark_test_headers PRIVATE ${VELLOMARK_TEST_OPTIONS})
target_link_libraries(vellomark_test_headers PRIVATE GTest::gtest)
target_precompile_headers(
  vellomark_test_headers
  PRIVATE
  <gtest/gtest.h>
  <filesystem>
  <fstream>
  <sstream>
  <string>
  <vector>)

# vellomark_test_code(<name>): compiles the target vellomark_<name> like all code of tests.
function(vellomark_test_code name)
  target_include_directories(vellomark_${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_compile_options(vellomark_${name} PRIVATE ${VELLOMARK_TEST_OPTIONS})
  target_link_libraries(vellomark_${name} PRIVATE GTest::gtest)
  target_precompile_headers(vellomark_${name} REUSE_FROM vellomark_test_headers)
endfunction()

# vellomark_add_test_library(<name> <file>...)
#
# Makes the target vellomark_<name> of what several test programs share.
function(vellomark_add_test_library name)
  add_library(vellomark_${name} STATIC ${ARGN})
  vellomark_common_options(vellomark_${name})
  # The headers were compiled for programs.
  target_compile_options(vellomark_${name} PRIVATE -fPIE)
  vellomark_test_code(${name})
endfunction()

# vellomark_add_test(<name> SOURCES <file>... [LIBRARIES <target>...] [LABELS <label>...]
#                    [SHARDS <count>])
#
# Makes the target vellomark_<name>, whose program is called <name>, and tells ctest of it. One
# process runs all cases of the program, since starting a process costs more than most cases do.
# With SHARDS the cases are shared between <count> processes, which run at the same time: for
# programs that take many seconds.
#
# Every test has the names of its folders as labels: `ctest -L report` runs the tests of
# tests/report and of the folders in it.
function(vellomark_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "SHARDS" "SOURCES;LIBRARIES;LABELS")
  if(arg_UNPARSED_ARGUMENTS OR NOT arg_SOURCES)
    message(FATAL_ERROR "vellomark_add_test(${name}): wrong arguments ${arg_UNPARSED_ARGUMENTS}")
  endif()
  set(target vellomark_${name})
  vellomark_add_program(${name} ${arg_SOURCES})
  vellomark_test_code(${name})
  target_link_libraries(${target} PRIVATE ${arg_LIBRARIES} GTest::gtest_main)
  vellomark_run_cases(${name} "${arg_SHARDS}" ${arg_LABELS})
endfunction()

# vellomark_run_cases(<name> <shards> <label>...): tells ctest of the GoogleTest program <name>.
function(vellomark_run_cases name shards)
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY "${PROJECT_SOURCE_DIR}/tests"
             OUTPUT_VARIABLE folders)
  string(REPLACE "/" ";" labels "${folders}")
  list(APPEND labels googletest ${ARGN})
  if(NOT shards)
    set(shards 1)
  endif()
  foreach(shard RANGE 1 ${shards})
    set(test ${name})
    set(environment GTEST_BRIEF=1)
    if(shards GREATER 1)
      set(test ${name}.${shard})
      math(EXPR index "${shard} - 1")
      list(APPEND environment GTEST_TOTAL_SHARDS=${shards} GTEST_SHARD_INDEX=${index})
    endif()
    add_test(NAME ${test} COMMAND vellomark_${name})
    # The more shards, the earlier: long tests that start last keep one processor idle.
    set_tests_properties(${test} PROPERTIES LABELS "${labels}" TIMEOUT 900 COST ${shards}
                                            ENVIRONMENT "${environment}")
  endforeach()
endfunction()
