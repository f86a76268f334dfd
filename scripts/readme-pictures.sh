#!/usr/bin/env bash
# readme-pictures.sh <tour's output folder>
# Makes the pictures of the README anew, from those of a tour.
set -eu
cd "$(dirname "$0")/.."
mkdir -p docs
for picture in menu-hover playing betting-wrong editor-marked; do
    convert "$1"/[0-9][0-9]-$picture.png -resize 480x360 -colors 256 -strip "PNG8:docs/$picture.png"
done
