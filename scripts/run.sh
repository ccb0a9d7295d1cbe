#!/usr/bin/env bash
# Installs what is missing, builds Quorl and starts it with its bundled character.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh" run
"$root/scripts/build.sh" -DQUORL_BUILD_TESTS=OFF
exec "${QUORL_BUILD_DIR:-$root/build}/app/quorl"
