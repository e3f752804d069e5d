#!/usr/bin/env bash
# Installs missing packages, builds the album and starts it.
set -euo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")"
. tools/setup.sh

install_packages "${required_packages[@]}"
build_preset release lunq

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    stop_with "There is no display to open the window on. Without one, start it with: xvfb-run -a ./run.sh"
fi
exec build/release/bin/lunq
