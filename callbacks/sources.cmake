# Callback objects, their trampolines and registration entry points, and the
# sensor routes: part of liborvexjava (included from runtime/).

target_sources(orvexjava PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/CallbackHoldings.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CallbackKinds.cpp
  ${CMAKE_CURRENT_LIST_DIR}/JCallback.cpp
  ${CMAKE_CURRENT_LIST_DIR}/NCallback_jni.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SoCallbackAction_callbacks_jni.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SoCallbackList_callbacks_jni.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SoDBHeader_callbacks_jni.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SoEventCallback_callbacks_jni.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SoGLRenderAction_callbacks_jni.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SoSelection_callbacks_jni.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SoWWW_callbacks_jni.cpp
  ${CMAKE_CURRENT_LIST_DIR}/sensors/SensorRoutes_jni.cpp
  ${CMAKE_CURRENT_LIST_DIR}/sensors/SoSensorManager_jni.cpp
)
# Sibling libraries include JCallback.h by file name.
target_include_directories(orvexjava PUBLIC ${CMAKE_CURRENT_LIST_DIR})

# The hold accounting, against a scripted virtual machine.
orvex_add_gtest(orvexjava_callback_tests
  SOURCES ${CMAKE_CURRENT_LIST_DIR}/tests/CallbackHoldings_test.cpp
  LIBS orvexjava orvex)
