#!/usr/bin/env bash
# Configures and builds everything (toolkit, binding, jar, tests, examples) into build/.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${ORVEX_BUILD_DIR:-$root/build}"
type="${ORVEX_BUILD_TYPE:-RelWithDebInfo}"
if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE="$type"
fi
cmake --build "$build" -j"$(nproc)"
