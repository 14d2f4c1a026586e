#!/usr/bin/env bash
# Builds everything with AddressSanitizer and UndefinedBehaviorSanitizer into
# build-asan/ (or $ORVEX_ASAN_BUILD_DIR) and runs the tests there; extra
# arguments go to ctest (e.g. -R jvm. or -LE fuzz).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/install-deps.sh"
build="${ORVEX_ASAN_BUILD_DIR:-$root/build-asan}"
type="${ORVEX_BUILD_TYPE:-RelWithDebInfo}"
jobs="${ORVEX_JOBS:-$(nproc)}"
# Re-running the configure step is cheap and keeps the option on even in a
# build tree that was first configured without it.
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE="$type" -DORVEX_SANITIZE=ON
cmake --build "$build" -j"$jobs"
cd "$build"
# Native test programs: leak checking on, stack traces for UB reports. The
# JVM suites replace these with options of their own (see cmake/Sanitizers.cmake).
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:strict_init_order=1:check_initialization_order=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
ctest --output-on-failure -j"$jobs" "$@"
