#!/usr/bin/env bash
# tour-2x.sh <program folder> <output folder>
# Chooses windows of twice the size on the menu and plays a short game in them, by keys, on a
# virtual display; leaves a few pictures named "...-2x.png" in the output folder.
set -u
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/display.sh
. "$scripts/display.sh"
# shellcheck source=scripts/screens.sh
. "$scripts/screens.sh"
# shellcheck source=scripts/games.sh
. "$scripts/games.sh"

[ $# -eq 2 ] || { echo "Usage: tour-2x.sh <program folder> <output folder>" >&2; exit 2; }
mkdir -p "$2" && output=$(cd "$2" && pwd) || exit 1
FAILURE_PICTURE=$output/failure-2x.png
SCREEN_WIDTH=1700
SCREEN_HEIGHT=1300
HAND=keys

# shot <name> [looks]: of the window, once it keeps still.
shot() {
    settle "${2:-1}"
    picture "$output/$1-2x.png" -crop $((8 * SCALE))x$((6 * SCALE))+0+0 +repage
}

open_display
program=$STAGE/program
cp -a "$1" "$program" || exit 1
rm -f "$program/H1.dat"
read_controls "$program"
start_program "$program"
await "the menu" menu_shown
choose_size 200
move_away
shot menu

click_on editor
await "the editor" editor_shown
click_on load
answer_file_dialog "Load Playlist" "$program/PlayList/Sample.m3u"
await "the songs" list_has_line 16
click_on_line 3
shot editor
click_on exit_editor

await "the menu" menu_shown
click_on one_player
await "the second stage" second_stage_shown ""
click_on normal_play
await "the chooser" chooser_shown
click_on playlist
answer_file_dialog "Load Playlist" "$program/PlayList/Sample.m3u"
ANSWERS=
for question in 1 2 3 4 5 6; do
    await "the question" question_shown
    start_clip
    [ $question -gt 1 ] || shot board
    give_answer
    go_on
done
await "the scores" scores_shown
use continue_scores Return
[[ $ANSWERS != *right* ]] || enter_name "Player at 2x"
await "the table" table_shown
shot table
press_key Escape
await_end 0
finish_pictures
