# cmake -DROOT=... -DBUILD=... -DCTEST=... -P test_files.cmake: every *_test.cpp below tests/ is
# compiled into a program that ctest runs. A folder that no list takes up, and a list that forgets a
# file or a program, would otherwise look like tests that pass.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND "${CTEST}" --show-only=json-v1 WORKING_DIRECTORY "${BUILD}"
                OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ".exe\"" "\"" listing "${listing}")
string(REGEX MATCHALL "/[A-Za-z0-9_]+\"" commands "${listing}")
list(REMOVE_DUPLICATES commands)

set(run "")
file(STRINGS "${BUILD}/compile_commands.json" lines REGEX "\"(command|file)\": ")
foreach(line IN LISTS lines)
  if(line MATCHES "\"command\": .*/CMakeFiles/([A-Za-z0-9_]+)\\.dir/")
    set(program "${CMAKE_MATCH_1}")
  elseif(line MATCHES "\"file\": \".*/tests/(.*_test\\.cpp)\"" AND "/${program}\"" IN_LIST commands)
    list(APPEND run "${CMAKE_MATCH_1}")
  endif()
endforeach()

file(GLOB_RECURSE written RELATIVE "${ROOT}/tests" "${ROOT}/tests/*_test.cpp")
list(LENGTH written count)
set(forgotten ${written})
list(REMOVE_ITEM forgotten ${run})
if(forgotten)
  list(JOIN forgotten "\n  tests/" text)
  message(FATAL_ERROR "No program that ctest runs is made of:\n  tests/${text}")
endif()
if(count LESS 20)
  message(FATAL_ERROR "Only ${count} test files found below ${ROOT}/tests")
endif()
message(STATUS "ctest runs all ${count} test files")
