#!/usr/bin/env bash
# Configures and builds Quorl in build/ (or $QUORL_BUILD_DIR), with the tests.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${QUORL_BUILD_DIR:-$root/build}
generator=()
command -v ninja >/dev/null && generator=(-G Ninja)
[ -f "$build/CMakeCache.txt" ] && generator=()
cmake -S "$root" -B "$build" "${generator[@]}" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
cmake --build "$build" -j "$(nproc)"
