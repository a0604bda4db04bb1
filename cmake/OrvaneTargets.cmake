# orvane_library(core DEPENDS ...): all sources of a folder of src/ as one static library.
function(orvane_library name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp"
                                      "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  if(NOT sources MATCHES "\\.cpp")
    add_library(orvane_${name} INTERFACE)
    target_link_libraries(orvane_${name} INTERFACE orvane_flags ${ARG_DEPENDS})
    return()
  endif()
  add_library(orvane_${name} STATIC ${sources})
  set_target_properties(orvane_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(orvane_${name} PUBLIC orvane_flags ${ARG_DEPENDS})
endfunction()

# orvane_test(core DEPENDS ...): all *_test.cpp of a folder of tests/ as one GoogleTest program.
function(orvane_test name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/${name}/*_test.cpp")
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_test ${sources})
  target_link_libraries(${name}_test PRIVATE orvane_flags orvane_test_support ${ARG_DEPENDS}
                                             GTest::gtest_main)
  target_include_directories(${name}_test PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_compile_definitions(${name}_test PRIVATE
    ORVANE_GOLDEN_DIR="${PROJECT_SOURCE_DIR}/tests/golden")
  if(CMAKE_CROSSCOMPILING)
    # Half a second to start a program under the emulator: two halves instead of a test each.
    foreach(half 0 1)
      add_test(NAME ${name}.half_${half} COMMAND ${name}_test --gtest_brief=1)
      set_tests_properties(${name}.half_${half} PROPERTIES
        ENVIRONMENT "GTEST_TOTAL_SHARDS=2;GTEST_SHARD_INDEX=${half}"
        FIXTURES_REQUIRED emulator)
    endforeach()
    return()
  endif()
  gtest_discover_tests(${name}_test TEST_PREFIX "${name}." NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60)
endfunction()
