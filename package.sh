#!/usr/bin/env bash
# Installs what is missing and makes the packages from scratch: build/package/songrush*.deb for
# Debian, and build/package/songrush-*.tar.gz to be unpacked anywhere.
set -eu
cd "$(dirname "$0")"
. scripts/prepare.sh

prepare build package
rm -rf build/package
cmake --workflow --preset package
lintian --fail-on error build/package/songrush*.deb
ls -l build/package/songrush*.deb build/package/songrush*.tar.gz
