#!/bin/sh
# shellcheck disable=SC1111
# Starts the album of this user. The program keeps the album, the backup's scripts and scratch files in its own folder, which
# has to be writable. So every user has a folder with a copy of the program, just like an unpacked portable archive. The
# whole folder can be copied to another disk or computer, and runs there.
set -eu
shipped=$(dirname -- "$(readlink -f -- "$0")")/../lib/lunq
album=$HOME/览忆集苑
# shellcheck source=packaging/start.sh
. "$shipped/start.sh"

# Each file gets its name when it is whole. A running copy of the program keeps the files that it has open.
bring() {
    if cmp -s -- "$shipped/$1" "$album/$1"; then return 0; fi
    if cp -- "$shipped/$1" "$album/$1.part" && mv -f -- "$album/$1.part" "$album/$1"; then return 0; fi
    rm -f -- "$album/$1.part"
    return 1
}

# The program takes its first catalogue from there, and the one that takes in an old catalogue. Some disks know no links.
offer_fresh() {
    if [ -e "$album/fresh/lunq.mdb" ]; then return 0; fi
    ln -sfn -- "$(readlink -f -- "$shipped/fresh")" "$album/fresh" || cp -R -- "$shipped/fresh" "$album/"
}

if ! mkdir -p -- "$album"; then
    tell "不能建立文件夹“${album}”，览忆集苑无法启动。"
    exit 1
fi
complete=yes
for file in lunq-jet lunq-backup lunq-heif lunq-tiff lunq-webp lunq-cli s1.ico start.sh lunq; do
    bring "$file" || complete=no
done
offer_fresh || complete=no
# If there was no room for the new version, an older copy still opens the album.
if [ ! -x "$album/lunq" ]; then
    tell "文件夹“${album}”不能写入，览忆集苑无法启动。"
    exit 1
elif [ "$complete" = no ]; then
    tell "文件夹“${album}”不能写入，没有换成新的版本。"
fi
start_program "$album"
