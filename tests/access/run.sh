#!/usr/bin/env bash
# run.sh <program folder>
# Plays the real program on a virtual display by what it tells screen readers, over an
# accessibility bus of its own.
set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/display.sh
. "$here/../../scripts/display.sh"

[ $# -eq 1 ] || { echo "Usage: run.sh <program folder>" >&2; exit 2; }
original=$(cd "$1" && pwd) || exit 1
open_display
copy_program "$original" "$STAGE/program"
export GSETTINGS_BACKEND=memory PYTHONDONTWRITEBYTECODE=1
# Debian's own, which has the bindings.
dbus-run-session -- /usr/bin/python3 -W ignore::DeprecationWarning "$here/play.py" "$STAGE/program"
