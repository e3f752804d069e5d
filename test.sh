#!/usr/bin/env bash
# Installs missing packages, builds the album and its tests, and runs all tests without a display.
set -euo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")"
. tools/setup.sh

preset=${1:-dev}
install_packages "${required_packages[@]}" "${test_packages[@]}"
build_preset "$preset" all
export QT_QPA_PLATFORM=offscreen
exec ctest --preset "$preset" --parallel "$(nproc)"
