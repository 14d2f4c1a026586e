# AddressSanitizer + UndefinedBehaviorSanitizer build of everything C++.
#
#   cmake -S . -B build-asan -G Ninja -DORVEX_SANITIZE=ON     (or scripts/sanitize.sh)
#
# Every target compiled in this tree (toolkit libraries, liborvexjava, the
# probe and test-support libraries, the GoogleTest programs, tools and
# examples) gets the sanitizer flags at compile and at link time. Undefined
# behaviour is not recoverable, so a test that hits it fails instead of
# printing a message and carrying on.
#
# The JVM is not built with ASan, and the ASan runtime must be the first
# library in the process. orvex_sanitize_jvm_test() gives a CTest test that
# runs a JVM the environment it needs: the runtime preloaded and options
# that let it coexist with the virtual machine.
#
# The reader fuzzer (toolkit/fuzz) is unaffected: it is configured and built
# on its own with clang and its own sanitizer flags when its test runs.

option(ORVEX_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

if(NOT ORVEX_SANITIZE)
  return()
endif()

if(NOT CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  message(FATAL_ERROR "ORVEX_SANITIZE needs GCC or Clang (compiler: ${CMAKE_CXX_COMPILER_ID})")
endif()

set(ORVEX_SANITIZER_FLAGS
  -fsanitize=address,undefined
  -fno-sanitize-recover=undefined
  -fno-omit-frame-pointer)
add_compile_options(${ORVEX_SANITIZER_FLAGS})
add_link_options(${ORVEX_SANITIZER_FLAGS})

# Locates the sanitizer runtime libraries of the compiler in use, as the
# compiler itself reports them (a bare name back means "not found").
function(_orvex_runtime_library out name)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
                  OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE
                  RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0 OR NOT IS_ABSOLUTE "${path}" OR NOT EXISTS "${path}")
    set(path "")
  endif()
  set(${out} "${path}" PARENT_SCOPE)
endfunction()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC keeps UBSan in a runtime of its own, next to libasan.
  _orvex_runtime_library(_orvex_asan_runtime libasan.so)
  _orvex_runtime_library(_orvex_ubsan_runtime libubsan.so)
  set(ORVEX_SANITIZER_PRELOAD ${_orvex_asan_runtime} ${_orvex_ubsan_runtime})
  if(NOT _orvex_asan_runtime OR NOT _orvex_ubsan_runtime)
    message(FATAL_ERROR "ORVEX_SANITIZE: libasan.so or libubsan.so of ${CMAKE_CXX_COMPILER} not found "
                        "(Debian: libgcc-12-dev ships both)")
  endif()
else()
  # Clang links a static ASan runtime into each executable, which the
  # sanitized shared libraries then use; in a JVM they need the shared
  # runtime, which carries the UBSan handlers as well.
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -dumpmachine
                  OUTPUT_VARIABLE _orvex_triple OUTPUT_STRIP_TRAILING_WHITESPACE)
  string(REGEX REPLACE "-.*$" "" _orvex_arch "${_orvex_triple}")
  _orvex_runtime_library(_orvex_asan_runtime libclang_rt.asan-${_orvex_arch}.so)
  if(NOT _orvex_asan_runtime)
    message(FATAL_ERROR "ORVEX_SANITIZE: libclang_rt.asan-${_orvex_arch}.so of ${CMAKE_CXX_COMPILER} not found "
                        "(Debian: libclang-rt-<version>-dev)")
  endif()
  set(ORVEX_SANITIZER_PRELOAD ${_orvex_asan_runtime})
endif()
list(JOIN ORVEX_SANITIZER_PRELOAD ":" _orvex_preload)
message(STATUS "Sanitizers: address,undefined; JVM tests preload ${_orvex_preload}")

# Options for the sanitized library inside a JVM:
#  handle_segv=0, allow_user_segv_handler=1: the JVM turns SIGSEGV (null
#    checks, safepoint polls, stack banging) into ordinary control flow and
#    must keep its own handler;
#  detect_leaks=0: the JVM never frees much of what it allocates at exit;
#  detect_stack_use_after_return=0: the fake stacks it needs confuse the
#    JVM's stack walking of native frames;
#  use_sigaltstack=0: the JVM manages the alternate signal stacks of its
#    threads itself;
#  abort_on_error=0, exitcode: a finding ends the JVM with a distinct status,
#    and "ERROR: AddressSanitizer" in the output fails the test as well.
set(ORVEX_SANITIZER_JVM_ASAN_OPTIONS
  "handle_segv=0:allow_user_segv_handler=1:detect_leaks=0:detect_stack_use_after_return=0:use_sigaltstack=0:abort_on_error=0:exitcode=86")
set(ORVEX_SANITIZER_UBSAN_OPTIONS "print_stacktrace=1:halt_on_error=1")

# A dlclose() that keeps libraries mapped (see the source), for test
# programs whose libraries load and unload plug-ins such as OpenGL drivers.
add_library(orvex_keep_libraries_loaded SHARED ${CMAKE_CURRENT_LIST_DIR}/sanitizers/KeepLibrariesLoaded.c)
# Nothing in it to instrument, and it must not pull a runtime of its own.
set_property(TARGET orvex_keep_libraries_loaded PROPERTY COMPILE_OPTIONS "")
set_property(TARGET orvex_keep_libraries_loaded PROPERTY LINK_OPTIONS "")

# orvex_sanitize_keep_libraries_loaded(<gtest target>)
# Runs every test that gtest_discover_tests() registered for the target
# (call it after that) with the dlclose() above preloaded; with GCC the
# shared ASan runtime has to come first in the list. The environment is set
# when ctest reads the directory, after the discovered tests are known:
# gtest_discover_tests() cannot pass list-valued properties through.
function(orvex_sanitize_keep_libraries_loaded target)
  set(preload "$<TARGET_FILE:orvex_keep_libraries_loaded>")
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set(preload "${_orvex_asan_runtime}:${preload}")
  endif()
  add_dependencies(${target} orvex_keep_libraries_loaded)
  set(script "${CMAKE_CURRENT_BINARY_DIR}/${target}_keep_libraries_loaded.cmake")
  string(CONCAT content
    "foreach(test IN LISTS ${target}_TESTS)\n"
    "  set_tests_properties(\"\${test}\" PROPERTIES ENVIRONMENT_MODIFICATION [==[LD_PRELOAD=set:${preload}]==])\n"
    "endforeach()\n")
  file(GENERATE OUTPUT "${script}" CONTENT "${content}")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${script}")
endfunction()

# orvex_sanitize_jvm_test(<test>...)
# Adds the sanitizer runtime and its options to the environment of tests
# that run a JVM, and fails them on any sanitizer report in their output.
function(orvex_sanitize_jvm_test)
  foreach(test IN LISTS ARGN)
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT
      "LD_PRELOAD=${_orvex_preload}"
      "ASAN_OPTIONS=${ORVEX_SANITIZER_JVM_ASAN_OPTIONS}"
      "UBSAN_OPTIONS=${ORVEX_SANITIZER_UBSAN_OPTIONS}")
    set_property(TEST ${test} APPEND PROPERTY FAIL_REGULAR_EXPRESSION
      "ERROR: AddressSanitizer" "runtime error: ")
  endforeach()
endfunction()
