#!/usr/bin/env bash
# Installs what is missing, builds everything under address and undefined-behaviour sanitizers and
# runs all the tests.
set -eu
cd "$(dirname "$0")"
. scripts/prepare.sh

prepare build run package tour test
shellcheck ./*.sh scripts/*.sh tests/*.sh .ci/run
build asan
ctest --preset asan "$@"
