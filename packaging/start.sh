#!/bin/sh
# shellcheck disable=SC1111
# Starts the program in a folder, by default that of this script, and says it on the desktop when it does not start: a
# program that lacks a library ends without a word that anybody would see.
set -u

tell() {
    printf '%s\n' "$1" >&2
    if command -v zenity >/dev/null; then
        zenity --error --no-markup --title=览忆集苑 --text="$1"
    elif command -v kdialog >/dev/null; then
        kdialog --title 览忆集苑 --error "$1"
    elif command -v notify-send >/dev/null; then
        notify-send --urgency=critical 览忆集苑 "$1"
    elif command -v xmessage >/dev/null; then
        xmessage "$1"
    fi >/dev/null 2>&1 || true
}

# One a line: those that are not there, and those that are too old, with the version that is wanted.
missing_libraries() {
    LC_ALL=C ldd "$1" 2>&1 | sed -n -e 's/^[[:space:]]*\([^ ]*\) => not found$/\1/p' \
        -e 's/^.*\/\([^/]*\): version .\([^ ]*\). not found .*/\1 (\2)/p' | sort -u
}

# The loader ends with 127 when a library is not there, and with 1 when one is too old.
tell_missing() {
    missing=$(missing_libraries "$2/lunq")
    if [ -n "$missing" ]; then
        tell "览忆集苑不能启动，系统缺少这些部件，或者它们的版本太旧：
$missing

在 Debian、Ubuntu 上可以这样安装：
sudo apt install libqt6widgets6 libqt6svg6 qt6-qpa-plugins libsqlite3-0 libexiv2-27 liblcms2-2 libturbojpeg0 libjpeg62-turbo"
    elif [ "$1" = 127 ]; then
        tell "“$2/lunq”不能启动。"
    fi
}

start_program() {
    status=0
    "$1/lunq" || status=$?
    case $status in
        126) tell "“$1/lunq”不能运行：没有运行它的权限，或者这个磁盘不许运行程序。请把整个文件夹复制到主文件夹里再试。" ;;
        1 | 127) tell_missing "$status" "$1" ;;
        69) tell "览忆集苑不能打开窗口：显示器连不上，或者系统缺少显示窗口的部件（qt6-qpa-plugins、qt6-wayland）。像册没有改动。" ;;
        132 | 134 | 135 | 136 | 137 | 139) tell "览忆集苑意外结束了。请再启动一次：它会检查像册；有没有做完的改动，会自动撤回。" ;;
    esac
    return "$status"
}

case ${0##*/} in
    start.sh) start_program "$(dirname -- "$(readlink -f -- "$0")")" ;;
esac
