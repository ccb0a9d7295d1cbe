#!/usr/bin/env bash
# Installs what is missing, builds Quorl and runs every test.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${QUORL_BUILD_DIR:-$root/build}
"$root/scripts/deps.sh" test
# The folders must link downward only; this prints their include graph and fails on a cycle.
python3 "$root/scripts/include-graph.py"
"$root/scripts/build.sh" -DQUORL_BUILD_TESTS=ON -DQUORL_WARNINGS_AS_ERRORS=ON
cd "$build"
ctest --output-on-failure -j "$(nproc)"
