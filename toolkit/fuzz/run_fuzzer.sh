#!/usr/bin/env bash
# Builds the scene-reader fuzzer with clang and runs it for a bounded time
# over the seed corpus. Exits 77 (skipped) when clang is not installed.
#   run_fuzzer.sh <source root> <build dir> [seconds]
set -euo pipefail
src="$1"
build="$2"
seconds="${ORVEX_FUZZ_SECONDS:-${3:-60}}"

cxx=""
for candidate in clang++ clang++-14; do
  if command -v "$candidate" > /dev/null 2>&1; then cxx="$(command -v "$candidate")"; break; fi
done
if [ -z "$cxx" ]; then
  echo "SKIPPED: clang++ is not installed; the reader fuzzer needs clang's libFuzzer"
  echo "(install clang-14 and libclang-rt-14-dev, see scripts/install-deps.sh)"
  exit 77
fi
cc="${cxx/clang++/clang}"

echo "== building the fuzzer with $cxx in $build"
cmake -S "$src/toolkit/fuzz/standalone" -B "$build" -G Ninja \
  -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_C_COMPILER="$cc" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DORVEX_ROOT="$src" > "$build.configure.log" 2>&1 || { cat "$build.configure.log"; exit 1; }
cmake --build "$build" -j2

# New inputs go to a working corpus; the seeds in the source tree stay as they are.
work="$build/corpus"
mkdir -p "$work" "$build/artifacts"
echo "== fuzzing SoDB::readAll for $seconds s"
# Leaks count as failures (LeakSanitizer); UB stops the run. Failures exit
# with 1, not libFuzzer's default 77, which the test takes as "skipped".
export ASAN_OPTIONS="detect_leaks=1:allocator_may_return_null=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
"$build/orvex_reader_fuzzer" \
  -max_total_time="$seconds" -timeout=10 -error_exitcode=1 -timeout_exitcode=1 -rss_limit_mb=2048 -max_len=65536 -print_final_stats=1 \
  -dict="$src/toolkit/fuzz/orvex.dict" -artifact_prefix="$build/artifacts/" \
  "$work" "$src/toolkit/fuzz/corpus"
echo "== fuzzing ended without a crash, leak or undefined behaviour"
