#!/usr/bin/env bash
# Installs missing packages, builds the fuzz targets with sanitizers, runs them one after the other, and prints a table of
# their runs. It fails when one has found something.
# Usage: ./fuzz.sh [minutes] [target...]   10 minutes each; the targets: picture, profile, formats, dialect, typed, catalogue, foreign
#
# A run keeps its inputs in build/fuzz/corpus, and the next run goes on from there. Inputs that ended a run, or took longer
# than 2 seconds, are kept in build/fuzz/findings. To run one of them alone: build/fuzz/bin/fuzz_TARGET FILE
# The target "foreign" begins with databases of another format: some made here, and those in the folder
# LUNQ_JET_SAMPLES if the environment names one.
set -euo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")"
. tools/setup.sh

minutes=10
if [[ ${1:-} =~ ^[0-9]+$ ]]; then
    minutes=$1
    shift
fi
targets=("$@")
if [ "$#" -eq 0 ]; then targets=(picture profile formats dialect typed catalogue foreign); fi

install_packages "${required_packages[@]}" "${fuzz_packages[@]}"
build_preset fuzz fuzz >&2
folder=$PWD/build/fuzz
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=allocator_may_return_null=1:quarantine_size_mb=16:malloc_context_size=5:handle_abort=1
export ASAN_SYMBOLIZER_PATH=/usr/bin/llvm-symbolizer-14
"$folder/bin/make_fuzz_seeds" "$folder/seeds" "${LUNQ_JET_SAMPLES:-}"

# sum_of TEXT FILE...: the sum of the figures that the runs have printed behind a text.
sum_of() {
    awk -v text="$1" 'index($0, text) { sum += $2 } END { print sum + 0 }' "${@:2}"
}

# Whether a run ended within a library that reads databases or pictures of another format. The program runs those libraries
# in processes of their own, so such a crash harms nobody.
ended_in_library() {
    awk '/^ *#[0-9]+ 0x/ && /libmdb|libheif|libde265|libaom|libdav1d|libtiff|libwebp|\/src\/|\/tools\// { found = /lib(mdb|heif|de265|aom|dav1d|tiff|webp)/; exit } END { exit !found }' "$1"
}

# forget_quick INPUT...: drops the inputs that were slow only because the machine had other work.
forget_quick() {
    local input
    for input in "$@"; do
        if (ulimit -t 2 && timeout 10 "$folder/bin/fuzz_$target" "$input") >/dev/null 2>&1; then rm -- "$input"; fi
    done
}

# run_target TARGET: runs it again after a finding until its time is over, but does not go on after five of them.
run_target() {
    local target=$1 corpus=$folder/corpus/$1 findings=$folder/findings/$1 log end left run=0
    mkdir -p "$corpus" "$findings" "$folder/logs" "$folder/seeds/$target"
    rm -f "$folder/logs/$target".*
    found=0 contained=0
    end=$(($(date +%s) + minutes * 60))
    while left=$((end - $(date +%s))) && [ "$left" -gt 0 ] && [ "$found" -lt 5 ]; do
        run=$((run + 1))
        log=$folder/logs/$target.$run
        if (cd "$corpus" && nice -n 19 "$folder/bin/fuzz_$target" -max_total_time="$left" \
            -rss_limit_mb=1500 -timeout=10 -report_slow_units=2 -print_final_stats=1 -reload=0 \
            -artifact_prefix="$findings/" . "$folder/seeds/$target") >"$log" 2>&1; then
            break
        elif ended_in_library "$log"; then
            contained=$((contained + 1))
        else
            found=$((found + 1))
            printf '%s, run %d: %s\n' "$target" "$run" "$(grep -a -m 1 -E 'EXPECTED|runtime error|ERROR: ' "$log")" >&2
        fi
    done
    shopt -s nullglob
    forget_quick "$findings"/slow-unit-*
    slow=("$findings"/slow-unit-*)
}

table=$(printf '| %-9s | %10s | %6s | %8s | %10s | %9s |' target executions corpus findings 'over 2 s' contained
    printf '\n| --- | --- | --- | --- | --- | --- |')
total=0
for target in "${targets[@]}"; do
    say_step "Fuzzing for $minutes minutes: $target" >&2
    run_target "$target"
    total=$((total + found + ${#slow[@]}))
    table+=$(printf '\n| %-9s | %10d | %6d | %8d | %10d | %9d |' "$target" \
        "$(sum_of number_of_executed_units "$folder/logs/$target".*)" "$(find "$folder/corpus/$target" -type f | wc -l)" \
        "$found" "${#slow[@]}" "$contained")
done
printf '%s\n' "$table"
[ "$total" -eq 0 ]
