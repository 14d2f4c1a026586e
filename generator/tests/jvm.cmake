# JUnit suites of the generated code, run by java/'s JVM runner (with
# -Xcheck:jni). Included at the end of the top-level directory.
if(NOT COMMAND orvex_add_junit_test)
  message(STATUS "JUnit runner not available: generator JVM suites not registered")
  return()
endif()

set(_jvm ${PROJECT_SOURCE_DIR}/generator/tests/jvm)
set(_junit /usr/share/java/junit-platform-console-standalone.jar)
get_property(_probe_java GLOBAL PROPERTY ORVEXGEN_PROBE_JAVA_SOURCES)
file(GLOB_RECURSE _gen_test_sources CONFIGURE_DEPENDS ${_jvm}/java/*.java)

set(CMAKE_JAVA_COMPILE_FLAGS -encoding UTF-8 --release 17 -Xlint:all,-serial,-processing,-try)
add_jar(orvexgen_tests_jar
  SOURCES ${_probe_java} ${_gen_test_sources}
  INCLUDE_JARS orvexjava_jar ${_junit}
  OUTPUT_NAME orvexgen-tests
  OUTPUT_DIR ${CMAKE_BINARY_DIR}/java)
add_dependencies(orvexgen_tests_jar orvexgen_probe orvexgen_probe_generate)

get_target_property(_orvexjava_jar orvexjava_jar JAR_FILE)
get_target_property(_orvexgen_tests_jar orvexgen_tests_jar JAR_FILE)
# orvex_add_junit_test puts this class path on the JVM's command line.
set(ORVEX_JUNIT_CLASSPATH "${_orvexjava_jar}:${_orvexgen_tests_jar}:${_junit}")

orvex_add_junit_test(jvm.generated.values CLASSES com.orvexa.orvex.GeneratedValueTypesTest)
orvex_add_junit_test(jvm.generated.handles CLASSES com.orvexa.orvex.GeneratedHandleClassesTest)
orvex_add_junit_test(jvm.generated.errors CLASSES com.orvexa.orvex.errors.ErrorsPackageTest)
orvex_add_junit_test(jvm.generator.fixture CLASSES com.orvexa.genprobe.GeneratedFixtureTest)
orvex_add_junit_test(jvm.generator.checksize CLASSES com.orvexa.genprobe.CheckSizeTest)
orvex_add_junit_test(jvm.generated.aliasing CLASSES com.orvexa.orvex.ValueAliasingTest)
# Each case runs in a child virtual machine of its own.
orvex_add_junit_test(jvm.generated.misuse CLASSES com.orvexa.orvex.MisuseTest)
orvex_add_junit_test(jvm.generated.scenegraph CLASSES com.orvexa.orvex.SceneGraphFromJavaTest)
orvex_add_junit_test(jvm.generated.everyclass CLASSES com.orvexa.orvex.EveryWrapperClassTest)
# Offscreen rendering needs no display server: none is offered.
orvex_add_junit_test(jvm.generated.render CLASSES com.orvexa.orvex.RenderFromJavaTest)
set_property(TEST jvm.generated.render PROPERTY ENVIRONMENT_MODIFICATION "DISPLAY=unset:" "WAYLAND_DISPLAY=unset:")
orvex_add_junit_test(jvm.generated.fieldvalues CLASSES com.orvexa.orvex.FieldValuesInBulkTest)
orvex_add_junit_test(jvm.generated.services CLASSES com.orvexa.orvex.ServicesAndListsTest)
# A small heap: wrappers are collected often, and leaks show early.
orvex_add_junit_test(jvm.generated.lifetime CLASSES com.orvexa.orvex.NativeLifetimeTest JVM_OPTIONS -Xmx32m)
orvex_add_junit_test(jvm.generated.plainarguments CLASSES com.orvexa.orvex.EveryMemberWithPlainArgumentsTest)
