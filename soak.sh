#!/usr/bin/env bash
# Installs missing packages, builds the program for the soak, and runs the soak:
#   ./soak.sh                          kills it 500 times at work, and 500 times on a disk that loses unsynced writes
#   ./soak.sh kill [--kills N] [--minutes N] [--seed N] [--unsynced | --full] [--only SCENES]
#   ./soak.sh STAGE [--kills N]        kills it, fills its disk, or takes that away, while it does one thing: backup,
#                                      restore, raising (of a catalogue of version 1), rescue or conversion
#   ./soak.sh keeping [--kills N]      the scenes of the bin, of proofs, backups and kept steps, and all these stages
#   ./soak.sh session [--minutes N]    uses it for a long time and watches its memory and files
set -euo pipefail
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")"
. tools/setup.sh

what=${1:-all}
if [ $# -gt 0 ]; then shift; fi
install_packages "${required_packages[@]}"
build_preset release fresh_catalogue lunq-soak

# In memory, if there is room: it is the processes that are to die, not the disk.
folder=$(mktemp -d "${TMPDIR:-/tmp}/lunq-soak.XXXXXX")
trap 'rmdir "$folder/program" "$folder" 2>/dev/null || say_step "The findings are in $folder"' EXIT
soak() {
    nice -n 19 build/release/bin/lunq-soak --folder "$folder/program" "$@"
}

case "$what" in
    all)
        say_step "500 kills"
        soak "$@"
        say_step "500 kills on a disk that loses what was not synced"
        soak --unsynced "$@"
        ;;
    kill) soak "$@" ;;
    backup | restore | raising | rescue | conversion) soak --stage "$what" "$@" ;;
    keeping)
        scenes=put-back,album-back,bin-empty,prove,hashes,from-backup,kept-steps
        soak --only "$scenes" "$@"
        soak --only "$scenes" --unsynced "$@"
        soak --only "$scenes" --full "$@"
        for stage in backup restore raising rescue conversion; do soak --stage "$stage" "$@"; done
        ;;
    session) soak --rounds 1000000 "$@" ;;
    *) stop_with "There is no soak \"$what\": kill, keeping, a stage or session, or nothing for both kinds of kills." ;;
esac
