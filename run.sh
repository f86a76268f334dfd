#!/usr/bin/env bash
# Installs what is missing, builds the game and starts it.
# --tour: plays whole games by itself on a virtual display and leaves pictures in build/tour/, and
# in build/tour/full/ those of a television's full screen.
set -eu
cd "$(dirname "$0")"
. scripts/prepare.sh

tour=no
[ "${1:-}" = "--tour" ] && tour=yes
if [ $tour = no ] && [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "There is no display here: taking the tour on a virtual one instead."
    tour=yes
fi
prepare build run
[ $tour = yes ] && prepare tour
build release
if [ $tour = yes ]; then
    tests/drive/tour.py build/release/songrush build/tour
    tests/drive/tour.py build/release/songrush build/tour/full 1920 1080
    exec tests/drive/contrast.py build/tour
fi
exec build/release/songrush/songrush
