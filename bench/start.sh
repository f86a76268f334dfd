#!/usr/bin/env bash
# start.sh <program folder> <folder of the benchmarks> [runs]
# The time from the program's start to its first picture, beside that of an empty window. At most
# 1.5 times as long is wanted.
set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/display.sh
. "$here/../scripts/display.sh"

[ $# -ge 2 ] || { echo "Usage: start.sh <program folder> <folder of the benchmarks> [runs]" >&2; exit 2; }
open_display
"$2/songrush_start_time" "${3:-21}" "$1/songrush" "$2/songrush_empty_window"
