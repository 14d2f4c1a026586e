#!/usr/bin/env bash
# Installs what is missing, builds, and runs the demo.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh"
build="${ORVEX_BUILD_DIR:-$root/build}"
exec java -Djava.library.path="$build/lib" -Dorvex.native.debug=true \
  -cp "$build/java/orvexjava.jar:$build/examples/orvexdemo.jar" com.orvexa.examples.Demo "$@"
