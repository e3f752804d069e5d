#!/bin/sh
# shellcheck disable=SC1111
# Puts the album into the menu of the desktop, for this user and this folder. "add-to-menu.sh --remove" takes it out.
set -eu
folder=$(dirname -- "$(readlink -f -- "$0")")
entry=${XDG_DATA_HOME:-$HOME/.local/share}/applications/org.lunq.album.desktop

if [ "${1:-}" = --remove ]; then
    rm -f -- "$entry"
    echo "菜单里的“览忆集苑”已删去。"
    exit 0
fi
# In a command, quotes, dollars, backticks and backslashes of a path take a backslash, and a percent sign is doubled. In
# all values of an entry, each backslash is doubled.
path=$(printf '%s' "$folder/start.sh" | sed 's/[\\"`$]/\\&/g; s/%/%%/g; s/\\/\\\\/g')
icon=$(printf '%s' "$folder/icons/lunq.png" | sed 's/\\/\\\\/g')
mkdir -p -- "${entry%/*}"
sed -e '/^Exec=/d' -e '/^Icon=/d' -- "$folder/icons/lunq.desktop" >"$entry.part"
printf 'Exec="%s"\nIcon=%s\n' "$path" "$icon" >>"$entry.part"
mv -f -- "$entry.part" "$entry"
echo "菜单里有了“览忆集苑”。文件夹搬走以后，请再运行一次；要删去它，运行 add-to-menu.sh --remove。"
