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

# A plug-in the database tests load; kept out of the library directory so
# that nothing else ever loads it.
add_library(orvex_test_plugin MODULE ${CMAKE_CURRENT_LIST_DIR}/TestPlugin.cpp)
target_link_libraries(orvex_test_plugin PRIVATE orvex)
set_target_properties(orvex_test_plugin PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/test-plugins)

# Tests of the database, input, output and buffer-object services.
orvex_add_gtest(orvex_services_tests
  SOURCES
    ${CMAKE_CURRENT_LIST_DIR}/DatabaseServices_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/InputServices_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/OutputServices_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/BufferObjects_test.cpp
  LIBS orvex)
target_include_directories(orvex_services_tests PRIVATE ${PROJECT_SOURCE_DIR}/toolkit/src/base/tests)
target_compile_definitions(orvex_services_tests PRIVATE ORVEX_TEST_PLUGIN="$<TARGET_FILE:orvex_test_plugin>")
add_dependencies(orvex_services_tests orvex_test_plugin)

# The texture, font and text nodes (the font and tessellation internals too).
orvex_add_gtest(orvex_texture_text_nodes_tests
  SOURCES ${CMAKE_CURRENT_LIST_DIR}/TextureTextNodes_test.cpp
  LIBS orvex)
target_include_directories(orvex_texture_text_nodes_tests PRIVATE ${PROJECT_SOURCE_DIR}/toolkit/src/orvex)
