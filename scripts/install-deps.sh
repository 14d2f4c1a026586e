#!/usr/bin/env bash
# Installs the Debian packages the build, the demo and the tests need.
# Idempotent: only packages that are missing are installed.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  openjdk-17-jdk-headless
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  junit5
  python3 python3-clang-14 libclang1-14
  zlib1g-dev
  clang-14 libclang-rt-14-dev
  libegl-dev libegl-mesa0 libgl-dev libgl1-mesa-dri libgles-dev libglu1-mesa-dev
  libpng-dev libjpeg62-turbo-dev
  libfreetype-dev fonts-dejavu-core
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: all packages present"
  exit 0
fi

echo "install-deps: installing ${missing[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
$SUDO apt-get update -qq
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
