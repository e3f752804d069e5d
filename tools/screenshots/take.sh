#!/usr/bin/env bash
# take.sh [FOLDER]: takes pictures of all windows into FOLDER, for a look at them; without one, those that the README shows.
# QT_SCALE_FACTOR=2 takes them as on a screen of twice the density.
set -euo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")/../.."
. tools/setup.sh

install_packages "${required_packages[@]}"

build_preset release take_screenshots fresh_catalogue
folder=${1:-$(mktemp -d)}
mkdir -p -- "$folder"
# A screen with room for windows of twice the size.
QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 2560x1920x24" \
    build/release/bin/take_screenshots build/release/lunq-fresh.mdb "$folder"
if [ $# -eq 0 ]; then
    cp -- "$folder/main.png" "$folder/editor.png" docs/pictures/
    cp -- "$folder/settings1.png" docs/pictures/settings.png
    rm -r -- "$folder"
fi
