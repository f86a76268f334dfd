#!/usr/bin/env bash
# Makes each system call fail by which the program changes files, and kills it there: faults.sh
# [step]..., by default all of them; then also takes disks and sound devices away. See tests/faults/.
set -eu
cd "$(dirname "$0")/.."
. scripts/prepare.sh
prepare build test tour gates faults

# Sanitizers and tracing do not go together.
made=$PWD/build/asan
[ -d "$made/songrush/Music" ] || build asan
cmake --preset clang -DSONGRUSH_MADE_IN="$made" >/dev/null
cmake --build --preset clang
tests/faults/faults.py build/clang "$@"
[ $# -gt 0 ] || tests/faults/unplug.py build/clang/songrush
