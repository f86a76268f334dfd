#!/usr/bin/env bash
# idle.sh <program folder> [seconds]
# The share of a processor core that the waiting program takes: at the menu, at a question whose
# clip has not begun, and beside them with the clip and the clock running. Below 1 % is wanted
# where it only waits.
set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/display.sh
. "$here/../scripts/display.sh"
# shellcheck source=scripts/screens.sh
. "$here/../scripts/screens.sh"
# shellcheck source=scripts/games.sh
. "$here/../scripts/games.sh"

[ $# -ge 1 ] || { echo "Usage: idle.sh <program folder> [seconds]" >&2; exit 2; }
program=$(cd "$1" && pwd)
seconds=${2:-10}

# Clock ticks that the program has used so far, for itself and in the system.
used_ticks() {
    local fields
    fields=$(sed 's/.*) //' "/proc/$PROGRAM/stat") # the name may hold blanks
    # shellcheck disable=SC2086
    set -- $fields
    echo $((${12} + ${13}))
}

measure() {
    local before after
    settle 1
    before=$(used_ticks)
    sleep "$seconds"
    running || fail_ended "the measurement was over"
    after=$(used_ticks)
    awk -v name="$1" -v ticks=$((after - before)) -v rate="$(getconf CLK_TCK)" \
        -v seconds="$seconds" \
        'BEGIN { printf "%-20s %5.2f %% of a core\n", name, 100 * ticks / rate / seconds }'
}

open_display
list=$STAGE/Songs.m3u # a copy, so that no song of the real one is marked as played
sed "s|^\.\./|$program/|" "$program/PlayList/Sample.m3u" >"$list"
read_controls "$program"
start_program "$program"
await "the menu" menu_shown
measure menu
click_on one_player
await "the second stage" second_stage_shown ""
click_on normal_play
await "the chooser" chooser_shown
click_on playlist
answer_file_dialog "Load Playlist" "$list"
await "the question" question_shown
move_away
measure "waiting board"
start_clip
measure "clip playing"
