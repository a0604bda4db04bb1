# cmake -DROOT=... -DVERSION=... -P versions.cmake: what is released says which version it is. The
# metadata, the list of changes and the package tell the one that the programs tell.
cmake_minimum_required(VERSION 3.25)

# The first place of a file that matches; the group is the version.
function(expect_version file pattern)
  file(READ "${ROOT}/${file}" text)
  if(NOT text MATCHES "${pattern}")
    message(FATAL_ERROR "${file} names no version by \"${pattern}\"")
  endif()
  if(NOT CMAKE_MATCH_1 STREQUAL VERSION)
    message(FATAL_ERROR "${file} tells version ${CMAKE_MATCH_1} first, the programs tell ${VERSION}")
  endif()
endfunction()

expect_version(packaging/desktop/orvane.metainfo.xml.in "<release version=\"([0-9.]+)\"")
expect_version(CHANGELOG.md "\n## ([0-9.]+)")
expect_version(debian/changelog "^orvane \\(([0-9.]+)\\)")
