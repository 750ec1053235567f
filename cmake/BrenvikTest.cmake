# One line makes a test, a fuzz target or a benchmark.

enable_testing()
find_package(Python3 REQUIRED COMPONENTS Interpreter)

# The entry of the test programs, compiled once, with what each of them includes.
if(BKUK_BUILD_TESTS)
  find_package(GTest REQUIRED)
  include(GoogleTest)
  add_library(bkuk_test_main OBJECT ${PROJECT_SOURCE_DIR}/tests/support/TestMain.cpp)
  set_target_properties(bkuk_test_main PROPERTIES POSITION_INDEPENDENT_CODE OFF)
  target_compile_options(bkuk_test_main PRIVATE -fPIE)
  target_link_libraries(bkuk_test_main PUBLIC bkuk_options GTest::gmock GTest::gtest)
  target_precompile_headers(bkuk_test_main PRIVATE ${BKUK_STANDARD_HEADERS} <gmock/gmock.h> <gtest/gtest.h>)
endif()

# bkuk_program(NAME SOURCES source... [LIBRARIES library...]): a program that is built from this tree to prove
# something about it.
function(bkuk_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} BrenvikUIKit::Testing BrenvikUIKit::BrenvikUIKit)
endfunction()

# bkuk_test(NAME SOURCES source... [LIBRARIES library...]): a GoogleTest program, whose cases become tests
# of their own. It draws on nobody's desktop.
function(bkuk_test name)
  bkuk_program(${name} ${ARGN})
  target_precompile_headers(${name} REUSE_FROM bkuk_test_main)
  target_link_libraries(${name} PRIVATE bkuk_test_main)
  gtest_discover_tests(${name} TEST_PREFIX ${name}. DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120)
endfunction()

# bkuk_script_test(NAME COMMAND word... [ENVIRONMENT NAME=value...]): a program that passes when it exits
# with 0. It runs alone, for it may measure time or need a display of its own.
function(bkuk_script_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "COMMAND;ENVIRONMENT")
  add_test(NAME ${name} COMMAND ${arg_COMMAND})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 RUN_SERIAL ON SKIP_RETURN_CODE 77
    ENVIRONMENT "${BKUK_TEST_ENVIRONMENT};PYTHONDONTWRITEBYTECODE=1;${arg_ENVIRONMENT}")
endfunction()

# bkuk_fuzz(NAME SOURCE CORPUS): a fuzz target that starts from the inputs in the folder CORPUS. Without
# libFuzzer the program replays them, so that every build keeps them passing.
function(bkuk_fuzz name source corpus)
  set(inputs ${CMAKE_CURRENT_SOURCE_DIR}/${corpus})
  if(BKUK_BUILD_FUZZ)
    bkuk_program(${name} SOURCES ${source})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set(found ${CMAKE_CURRENT_BINARY_DIR}/${name}-found)
    file(MAKE_DIRECTORY ${found})
    add_test(NAME ${name} COMMAND ${name} -max_total_time=30 -rss_limit_mb=1024 -artifact_prefix=${name}-
      ${found} ${inputs})
  else()
    bkuk_program(${name} SOURCES ${source} ${PROJECT_SOURCE_DIR}/fuzz/ReplayMain.cpp)
    add_test(NAME ${name} COMMAND ${name} ${inputs})
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT 120
    ENVIRONMENT "${BKUK_TEST_ENVIRONMENT};QT_QPA_PLATFORM=offscreen")
endfunction()

# bkuk_bench(NAME SOURCES source... [LIBRARIES library...]): a Google Benchmark program, found and run by
# `./dev bench`.
function(bkuk_bench name)
  find_package(benchmark REQUIRED)
  bkuk_program(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE benchmark::benchmark_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bench/bin)
endfunction()
