#!/usr/bin/env bash
# What the continuous integration checks beyond the tests: no warnings from clang and clang-tidy, no
# reports from the thread sanitizer, and passing tests for the portable side of the lower floors.
set -eu
cd "$(dirname "$0")/.."
. scripts/prepare.sh
prepare build test gates

# Pictures and songs are taken from the tested build.
made=$PWD/build/asan
[ -d "$made/songrush/Music" ] || build asan

cmake --preset clang -DSONGRUSH_MADE_IN="$made" >/dev/null
cmake --build --preset clang
run-clang-tidy -quiet -p build/clang "$PWD/(platform|library|audio|toolkit|game|editor|app)/" >build/clang/tidy.txt 2>&1 ||
    { cat build/clang/tidy.txt; exit 1; }

cmake --preset tsan -DSONGRUSH_MADE_IN="$made" >/dev/null
cmake --build --preset tsan
ctest --preset tsan -R '^(platform|library|audio)$'
# The sanitizer cannot follow what Qt's own threads do while they paint and read folders.
TSAN_OPTIONS=ignore_noninstrumented_modules=1 ctest --preset tsan -R '^(toolkit|game|editor|app)$'

cmake --preset portable -DSONGRUSH_MADE_IN="$made" >/dev/null
cmake --build --preset portable
ctest --preset portable
