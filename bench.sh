#!/usr/bin/env bash
# Installs missing packages, builds the album with optimisation, runs all benchmarks and prints their figures as one table.
# It fails when a figure misses its limit.
# Usage: ./bench.sh [topic...]   the benchmarks of these names alone: album, start, page …
set -euo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")"
. tools/setup.sh

install_packages "${required_packages[@]}" "${bench_packages[@]}"
build_preset release benchmarks lunq >&2
export QT_QPA_PLATFORM=offscreen

if [ "$#" -eq 0 ]; then
    for program in build/release/bin/bench_*; do set -- "$@" "${program##*/bench_}"; done
fi
lines=$(mktemp)
trap 'rm -f -- "$lines"' EXIT
broken=0
for topic in "$@"; do
    say_step "Measuring: $topic" >&2
    "build/release/bin/bench_$topic" >>"$lines" || broken=$((broken + 1))
done

printf '| %-10s | %-58s | %10s | %-44s | %7s | %-18s | %-3s |\n' \
    topic what measured beside ratio 'to reach' reached --- --- --- --- --- --- ---
grep '^| ' "$lines" | sort -s -t '|' -k 2,2
short=$(grep -c '| NO  |$' "$lines" || true)
printf '\n%d of %d figures fall short; %d benchmarks ended with a failure.\n' "$short" "$(grep -c '^| ' "$lines")" "$broken"
[ "$short" -eq 0 ] && [ "$broken" -eq 0 ]
