#!/usr/bin/env bash
# Checks the sources of the program with clang-tidy, by the committed .clang-tidy, and with the warnings of clang. A source
# is skipped if it was found clean before, and neither it nor a header that it includes has changed since. Needs the
# build of test.sh. Fails when it finds anything.
set -euo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")/.."
. tools/setup.sh

build=$PWD/build/dev
clean=${XDG_CACHE_HOME:-$HOME/.cache}/lunq-tidy
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
mkdir -p "$clean"
find "$clean" -type f -mtime +60 -delete

# The other compiler's precompiled headers are of no use here.
sed -E 's/-Winvalid-pch -include [^ ]*cmake_pch\.hxx//' "$build/compile_commands.json" >"$work/compile_commands.json"

# A line for each source: itself, and the project's headers that it includes.
sources_with_headers() {
    ninja -C "$build" -t deps | sed -E "s|^    (\.\./\.\./\|$PWD/)|    |" | awk '
        function tell() { if (source != "") print source headers; source = headers = "" }
        /^[^ ]/ { tell() }
        /^    src\/.*\.cpp$/ && !/_autogen/ { if (source == "") source = $1; next }
        /^    (src|tests|tools|bench)\// && !/_autogen|CMakeFiles/ { headers = headers " " $1 }
        END { tell() }' | sort -u -t ' ' -k 1,1
}

# What a finding depends on, as one name.
name_of_state() {
    { clang-tidy-14 --version && printf '%s\n' "$@" && cat -- .clang-tidy "$@"; } | sha256sum | cut -d ' ' -f 1
}

while read -r -a files; do
    [ -e "${files[0]}" ] || continue  # gone since the last build
    state=$clean/$(name_of_state "${files[@]}")
    if [ -e "$state" ]; then touch -- "$state"; else printf '%s\0%s\0' "${files[0]}" "$state"; fi
done < <(sources_with_headers) >"$work/changed"

say_step "clang-tidy: $(($(tr -dc '\0' <"$work/changed" | wc -c) / 2)) changed sources"
# shellcheck disable=SC2016 # The text is for another shell.
xargs -0 -r -n 2 -P "$(nproc)" bash -c '
    clang-tidy-14 -p "$0" --quiet --warnings-as-errors="*" "$1" 2>"$0/noise.$$" && exec touch -- "$2"
    grep -v "warnings\? generated\|errors\? generated" "$0/noise.$$" >&2
    exit 1' "$work" <"$work/changed" || stop_with "clang-tidy has found something."
