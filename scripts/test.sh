#!/usr/bin/env bash
# Installs what is missing, builds Quorl and runs every test.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${QUORL_BUILD_DIR:-$root/build}
"$root/scripts/deps.sh" test
"$root/scripts/build.sh" -DQUORL_BUILD_TESTS=ON
cd "$build"
ctest --output-on-failure -j "$(nproc)"
