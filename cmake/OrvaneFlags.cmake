# Every target of the project links orvane_flags; compiler and linker flags stand nowhere else.
add_library(orvane_flags INTERFACE)
target_compile_features(orvane_flags INTERFACE cxx_std_20)
target_include_directories(orvane_flags INTERFACE "${PROJECT_SOURCE_DIR}/src")

if(MSVC)
  target_compile_options(orvane_flags INTERFACE /W4 /WX /permissive- /utf-8)
else()
  target_compile_options(orvane_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
  # This compiler takes joining a text and a string for overlapping memory when it optimises fully.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(orvane_flags INTERFACE $<$<CONFIG:Release>:-Wno-restrict>)
  endif()
endif()

if(ORVANE_SANITIZE)
  target_compile_options(orvane_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(orvane_flags INTERFACE -fsanitize=address,undefined)
endif()

# The libraries too, so that the fuzzer sees which of their lines an input reaches. Reporting each
# comparison and each call through a pointer would take more time than all else: the inputs are
# patches of valid data and do not need it to find their way.
if(ORVANE_FUZZ)
  target_compile_options(orvane_flags INTERFACE
    -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp,indirect-calls)
endif()

if(ORVANE_COVERAGE)
  target_compile_options(orvane_flags INTERFACE --coverage -O0)
  target_link_options(orvane_flags INTERFACE --coverage)
endif()

find_program(ORVANE_CCACHE ccache)
if(ORVANE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${ORVANE_CCACHE}")
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
