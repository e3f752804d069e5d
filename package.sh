#!/usr/bin/env bash
# Makes the portable archive and the Debian package of the album in build/package/packages.
set -euo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")"
. tools/setup.sh

install_packages "${required_packages[@]}" dpkg-dev file
# The names of the files in the archive are Chinese.
export LC_ALL=C.UTF-8
build_preset package package
say_step "The packages are in build/package/packages."
