# Tests of fields, containers, nodes, paths, actions and scene files.
orvex_add_gtest(orvex_scenegraph_tests
  SOURCES
    ${CMAKE_CURRENT_LIST_DIR}/Fields_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/Containers_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/Nodes_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/Paths_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/Actions_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/SceneFiles_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ReadErrors_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ReadLimits_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ReadText_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/WriteErrors_test.cpp
  LIBS orvex ZLIB::ZLIB)
target_include_directories(orvex_scenegraph_tests PRIVATE ${PROJECT_SOURCE_DIR}/toolkit/src/base/tests)
