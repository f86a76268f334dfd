#!/usr/bin/env bash
# Installs what is missing, checks the layout of the code and the scripts, builds everything under
# address and undefined-behaviour sanitizers and runs all the tests.
set -eu
cd "$(dirname "$0")"
. scripts/prepare.sh

prepare build run package tour test
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
shellcheck ./*.sh scripts/*.sh tests/*.sh .ci/run
build asan
ctest --preset asan "$@"
