#!/usr/bin/env bash
# What the continuous integration checks beyond the tests: no warnings from clang and clang-tidy, no
# reports from the thread sanitizer, and passing tests for the portable side of the lower floors.
# Tests of what is drawn do not run under the thread sanitizer, which cannot follow the threads in
# which Qt paints and reads folders.
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
cmake --build --preset tsan --target test_audio test_game test_library
ctest --preset tsan -R '^(audio|library)$'
build/tsan/tests/test_game --gtest_filter='NextQuestion*'

cmake --preset portable -DSONGRUSH_MADE_IN="$made" >/dev/null
cmake --build --preset portable
ctest --preset portable
