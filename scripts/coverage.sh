#!/usr/bin/env bash
# How many lines of what reads and plays files are run by the unit tests and the corpus together,
# and which are not.
set -eu
cd "$(dirname "$0")/.."
. scripts/prepare.sh
prepare build test fuzz

# Pictures and songs are the tested build's.
made=$PWD/build/asan
[ -d "$made/songrush/Music" ] || build asan
cmake --preset coverage -DSONGRUSH_MADE_IN="$made" >/dev/null
cmake --build --preset coverage
rm -f build/coverage/*.profraw
ctest --preset coverage
llvm-profdata merge build/coverage/*.profraw -o build/coverage/all.profdata

tests=(build/coverage/tests/test_*)
run=("${tests[0]}" "${tests[@]/#/-object=}" -instr-profile=build/coverage/all.profdata)
sources=(library audio game/{CoverPicture,HighScoreTable,LastNames,LikeTitles}.cpp)
llvm-cov report "${run[@]}" -show-region-summary=false -show-branch-summary=false "${sources[@]}"
echo
echo "Lines that were not run:"
llvm-cov show "${run[@]}" "${sources[@]}" |
    awk '/^\// { file = $0 } /\| +0\|/ { if (file) print file; file = ""; print }'
