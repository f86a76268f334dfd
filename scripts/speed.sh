#!/usr/bin/env bash
# Builds and runs all benchmarks, and writes docs/speed.md.
set -eu
cd "$(dirname "$0")/.."
. scripts/prepare.sh
prepare build run tour bench
build bench
exec bench/speed.py build/bench
