#!/usr/bin/env bash
# Installs what is missing, builds the game and starts it.
# --tour: plays whole games by itself on a virtual display and leaves pictures in build/tour/, and
# in build/tour/2x/ those of a screen that is scaled to 200 %.
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
[ $tour = yes ] && prepare test
build release
if [ $tour = yes ]; then
    scripts/tour.sh build/release/songrush build/tour
    scripts/tour.sh build/release/songrush build/tour/2x 200
    scripts/tour-2x.sh build/release/songrush build/tour
    exec build/release/tools/contrast/songrush_check_contrast tools/contrast/texts.table build/tour
fi
exec build/release/songrush/songrush
