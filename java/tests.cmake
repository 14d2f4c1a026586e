# JUnit suites of the bridge, each run by CTest in its own JVM through the
# JUnit console launcher. A suite fails on a failed test (launcher exit code)
# and on any complaint of the JNI checker in its output.

set(ORVEX_JUNIT_STANDALONE /usr/share/java/junit-platform-console-standalone.jar)
if(NOT EXISTS ${ORVEX_JUNIT_STANDALONE})
  message(WARNING "JUnit console launcher not found (install junit5): JVM tests are not registered")
  return()
endif()

file(GLOB_RECURSE ORVEXJAVA_TEST_SOURCES CONFIGURE_DEPENDS
  ${CMAKE_CURRENT_SOURCE_DIR}/src/test/java/*.java)
set(CMAKE_JAVA_COMPILE_FLAGS -encoding UTF-8 --release 17 -Xlint:all,-serial,-processing,-try)
add_jar(orvexjava_tests_jar
  SOURCES ${ORVEXJAVA_TEST_SOURCES}
  INCLUDE_JARS orvexjava_jar ${ORVEX_JUNIT_STANDALONE}
  OUTPUT_NAME orvexjava-tests
  OUTPUT_DIR ${CMAKE_BINARY_DIR}/java)
add_dependencies(orvexjava_tests_jar orvexjava_testsupport)

get_target_property(ORVEXJAVA_JAR orvexjava_jar JAR_FILE)
get_target_property(ORVEXJAVA_TESTS_JAR orvexjava_tests_jar JAR_FILE)
set(ORVEX_JUNIT_CLASSPATH "${ORVEXJAVA_JAR}:${ORVEXJAVA_TESTS_JAR}:${ORVEX_JUNIT_STANDALONE}")

# orvex_add_junit_test(<name> CLASSES <fully qualified classes>...
#                      [NO_CHECK_JNI] [INCLUDE_TAGS <tags>...] [EXCLUDE_TAGS <tags>...])
function(orvex_add_junit_test name)
  cmake_parse_arguments(ARG "NO_CHECK_JNI" "" "CLASSES;INCLUDE_TAGS;EXCLUDE_TAGS;JVM_OPTIONS" ${ARGN})
  set(jvm_options -Djava.library.path=${CMAKE_BINARY_DIR}/lib -Djava.awt.headless=true ${ARG_JVM_OPTIONS})
  if(NOT ARG_NO_CHECK_JNI)
    list(PREPEND jvm_options -Xcheck:jni)
  endif()
  set(selectors "")
  foreach(cls IN LISTS ARG_CLASSES)
    list(APPEND selectors --select-class=${cls})
  endforeach()
  foreach(tag IN LISTS ARG_INCLUDE_TAGS)
    list(APPEND selectors --include-tag=${tag})
  endforeach()
  foreach(tag IN LISTS ARG_EXCLUDE_TAGS)
    list(APPEND selectors --exclude-tag=${tag})
  endforeach()
  add_test(NAME ${name}
    COMMAND ${Java_JAVA_EXECUTABLE} ${jvm_options} -cp ${ORVEX_JUNIT_CLASSPATH}
            org.junit.platform.console.ConsoleLauncher
            --disable-banner --disable-ansi-colors --details=tree --fail-if-no-tests
            ${selectors})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 300
    # Unicode file names need a UTF-8 locale in the JVM.
    ENVIRONMENT "LC_ALL=C.UTF-8"
    FAIL_REGULAR_EXPRESSION "WARNING in native method;FATAL ERROR in native method")
  if(ORVEX_SANITIZE)
    orvex_sanitize_jvm_test(${name})
  endif()
endfunction()

orvex_add_junit_test(jvm.runtime.strings CLASSES com.orvexa.tests.StringMarshallingTest)
orvex_add_junit_test(jvm.runtime.arrays CLASSES com.orvexa.tests.ArrayMarshallingTest)
orvex_add_junit_test(jvm.runtime.exceptions
  CLASSES com.orvexa.tests.ExceptionHelperTest EXCLUDE_TAGS pending-exception-calls)
# JNI calls made with an exception pending on purpose: the checker would flag them.
orvex_add_junit_test(jvm.runtime.exceptions.pending NO_CHECK_JNI
  CLASSES com.orvexa.tests.ExceptionHelperTest INCLUDE_TAGS pending-exception-calls)
orvex_add_junit_test(jvm.runtime.threads CLASSES com.orvexa.tests.NativeThreadTest)
orvex_add_junit_test(jvm.runtime.errors CLASSES com.orvexa.tests.ErrorRoutingTest)
orvex_add_junit_test(jvm.runtime.errors.upcalls CLASSES com.orvexa.tests.ErrorUpcallTest)
orvex_add_junit_test(jvm.runtime.objects CLASSES com.orvexa.tests.ObjectIdentityTest)
orvex_add_junit_test(jvm.runtime.startup CLASSES com.orvexa.tests.StartupTest)
orvex_add_junit_test(jvm.startup.trace CLASSES com.orvexa.tests.StartupTraceTest)

# Callback objects and sensors. The probe natives join the test support library.
target_sources(orvexjava_testsupport PRIVATE ${PROJECT_SOURCE_DIR}/callbacks/tests/CallbackProbes_jni.cpp)
orvex_add_junit_test(jvm.callbacks
  CLASSES com.orvexa.orvex.misc.callbacks.CallbacksTest com.orvexa.orvex.misc.callbacks.SelectionCallbacksTest
          com.orvexa.orvex.misc.callbacks.EventCallbacksTest com.orvexa.orvex.misc.callbacks.RenderCallbacksTest
          com.orvexa.orvex.misc.callbacks.WWWCallbacksTest com.orvexa.orvex.misc.callbacks.CallbackListTest
          com.orvexa.orvex.misc.callbacks.HeaderCallbacksTest)
orvex_add_junit_test(jvm.callbacks.threads CLASSES com.orvexa.orvex.misc.callbacks.CallbackThreadsTest)
# Collects every wrapper while rendering: in a JVM of its own, since objects
# that other suites leave behind are released on the Cleaner's thread meanwhile.
orvex_add_junit_test(jvm.callbacks.collected CLASSES com.orvexa.orvex.misc.callbacks.CollectedActionCallbacksTest)
orvex_add_junit_test(jvm.sensors CLASSES com.orvexa.orvex.sensors.SensorsTest)

# Native libraries carried by the jar: the index, and child JVMs started with only the jars.
orvex_add_junit_test(jvm.natives.index CLASSES com.orvexa.tests.natives.NativeLibraryIndexTest)
orvex_add_junit_test(jvm.natives.jaronly CLASSES com.orvexa.tests.natives.JarOnlyStartTest)
