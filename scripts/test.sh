#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test (toolkit, bridge, JVM suites).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh"
build="${ORVEX_BUILD_DIR:-$root/build}"
cd "$build"
ctest --output-on-failure -j"$(nproc)" "$@"
