#!/usr/bin/env bash
# take.sh [FOLDER]: takes pictures of all windows into FOLDER, for a look at them; without one, those that the README shows.
# take.sh --manual: takes those that the manual shows.
# QT_SCALE_FACTOR=2 takes them as on a screen of twice the density.
set -euo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")/../.."
. tools/setup.sh

install_packages "${required_packages[@]}"

build_preset release take_screenshots fresh_catalogue

# shoot FOLDER [--manual]
shoot() {
    mkdir -p -- "$1"
    # A screen with room for windows of twice the size.
    QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 2560x1920x24" \
        build/release/bin/take_screenshots "${@:2}" build/release/lunq-fresh.mdb "$1"
}

case ${1-} in
    --manual)
        folder=$(mktemp -d)
        QT_SCALE_FACTOR=2 shoot "$folder" --manual
        for name in main editor settings{1..4}; do cp -- "$folder/$name.jpg" assets/catalogue/pictures/; done
        rm -r -- "$folder"
        ;;
    "")
        folder=$(mktemp -d)
        shoot "$folder"
        cp -- "$folder/main.png" "$folder/editor.png" docs/pictures/
        cp -- "$folder/settings1.png" docs/pictures/settings.png
        rm -r -- "$folder"
        ;;
    *) shoot "$1" ;;
esac
