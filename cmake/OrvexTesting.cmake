# orvex_add_gtest(<name> SOURCES ... LIBS ...)
# Builds one GoogleTest executable and registers each of its tests with CTest.
include(GoogleTest)
function(orvex_add_gtest name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest GTest::gtest_main Threads::Threads)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
