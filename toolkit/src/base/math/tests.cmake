# GoogleTests of the math value types and of the module-check registry.
orvex_add_gtest(orvexbase_math_tests
  SOURCES
    ${CMAKE_CURRENT_LIST_DIR}/tests/SbVec_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/tests/SbMatrix_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/tests/SbGeometry_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/tests/SoModuleCheck_test.cpp
  LIBS orvexbase)
