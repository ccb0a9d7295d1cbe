#!/usr/bin/env bash
# Installs the Debian 12 packages that Quorl needs to build, run and test, when any is missing.
# As root it runs apt-get; otherwise it prints the one apt-get line to run and fails.
# Usage: scripts/deps.sh [run|test]
set -euo pipefail

build_packages=(
    cmake ninja-build g++ pkg-config
    qt6-base-dev qt6-base-dev-tools qt6-multimedia-dev qt6-qpa-plugins
    libgl1-mesa-dev libxkbcommon-dev libx11-dev libxcb1-dev libglib2.0-dev
    libespeak-ng-dev espeak-ng
    libpocketsphinx-dev libsphinxbase-dev pocketsphinx pocketsphinx-en-us
    libpulse-dev pulseaudio-utils libsndfile1-dev
)
run_packages=(xvfb xauth)
test_packages=(
    googletest libgtest-dev libbenchmark-dev xvfb xauth pulseaudio sox flite python3
    python3-dbusmock dbus dbus-x11 imagemagick xdotool trayer appstream dpkg-dev
)

packages=("${build_packages[@]}")
case "${1:-test}" in
    run) packages+=("${run_packages[@]}") ;;
    test) packages+=("${test_packages[@]}") ;;
    *) echo "usage: $0 [run|test]" >&2; exit 2 ;;
esac

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -ne 0 ]; then
    echo "Quorl needs these packages. Run as root:" >&2
    echo "  apt-get update && apt-get install -y ${missing[*]}" >&2
    exit 1
fi
export DEBIAN_FRONTEND=noninteractive
apt-get update -q
apt-get install -y -q "${missing[@]}"
