#!/usr/bin/env bash
# Makes each system call fail by which the program changes files, and kills it there: faults.sh
# [step]..., all of them by default. See tests/faults/faults.py.
set -eu
cd "$(dirname "$0")/.."
. scripts/prepare.sh
prepare build test gates faults

# Sanitizers and tracing do not go together.
made=$PWD/build/asan
[ -d "$made/songrush/Music" ] || build asan
cmake --preset clang -DSONGRUSH_MADE_IN="$made" >/dev/null
cmake --build --preset clang --target songrush_step
exec tests/faults/faults.py build/clang "$@"
