#!/usr/bin/env bash
# tour.sh <program folder> <output folder> [scale]
# Plays a whole game of each kind with the real program, by mouse and by keys, on a virtual display,
# and leaves a picture of every screen in the output folder. Scale is that of the system in percent,
# for which there must be a set of pictures: 100, 150, 200 or 300.
set -u
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/display.sh
. "$scripts/display.sh"
# shellcheck source=scripts/screens.sh
. "$scripts/screens.sh"
# shellcheck source=scripts/games.sh
. "$scripts/games.sh"

[ $# -ge 2 ] || { echo "Usage: tour.sh <program folder> <output folder> [scale]" >&2; exit 2; }
SCALE=${3:-100}
SCREEN_WIDTH=$((SCREEN_WIDTH * SCALE / 100))
SCREEN_HEIGHT=$((SCREEN_HEIGHT * SCALE / 100))
mkdir -p "$2" && output=$(cd "$2" && pwd) || exit 1
program=$output/program
rm -rf "$program" "$output"/*.png
cp -a "$1" "$program" || exit 1
rm -f "$program"/H1.dat "$program"/H2.dat
FAILURE_PICTURE=$output/failure.png
number=0

# shot <name>: of the window, once it keeps still.
shot() {
    settle
    shot_at_once "$1"
}

# shot_at_once <name>: of what lasts for moments only.
shot_at_once() { numbered_picture "$1" -crop $((8 * SCALE))x$((6 * SCALE))+0+0 +repage; }

# shot_of_display <name>: also of what stands beside the window.
shot_of_display() {
    settle
    numbered_picture "$1"
}

# numbered_picture <name> [convert's options]
numbered_picture() {
    local file
    number=$((number + 1))
    printf -v file '%s/%02d-%s.png' "$output" $number "$1"
    shift
    picture "$file" "$@"
}

# message <name> [key]
message() {
    await "the message $1" find_dialog "$MESSAGE"
    shot "$1"
    answer_message "${2:-Return}"
}

# file_dialog <title> <name> <path, or nothing to cancel>
file_dialog() {
    await "the dialog $1" find_dialog "$1"
    shot_of_display "$2"
    if [ -n "$3" ]; then
        answer_file_dialog "$1" "$3"
    else
        press_key Escape
        await "the end of the dialog $1" no_dialog "$1"
    fi
}

tour_menu() {
    await "the menu" menu_shown
    move_away
    shot menu
    move_onto several_players
    await "the hovered button" shows several_players hovered
    shot menu-hover
    xdotool mousedown 1
    await "the pressed button" shows several_players pressed
    shot menu-pressed
    move_away
    xdotool mouseup 1
    await "the released button" shows several_players normal
    tab_to one_player
    shot menu-keyboard-focus
    start_second_copy
}

start_second_copy() {
    local first=$PROGRAM
    start_program "$program"
    message already-running
    await_end 0
    PROGRAM=$first
}

# A list made of the sample songs, corrected, heard, saved and loaded.
tour_editor() {
    click_on editor
    await "the editor" editor_shown
    move_away
    shot editor-empty
    move_onto preview
    shot editor-hover
    xdotool mousedown 1
    shot editor-pressed
    xdotool mouseup 1
    message no-songs-in-list
    click_on add_dir
    file_dialog "Add Folder" editor-folder-dialog "$program/Music"
    await "the end of the scan" list_has_line 16
    move_away
    shot editor-filled
    click_at 640 86 # the header of the artists
    shot editor-sorted-by-artist
    click_on_line 2
    click_on_line 5 shift
    click_on_line 8 ctrl
    shot editor-marked
    click_on remove
    shot editor-removed
    tour_title_dialog
    tour_preview
    click_on save
    file_dialog "Save Playlist" editor-save-dialog Mine
    await "the saved list" own_list_saved
    click_on exit_editor
    await "the menu" menu_shown
}

own_list_saved() { [ "$(grep -c mp3 "$program/PlayList/Mine.m3u" 2>/dev/null)" = 18 ]; }

tour_title_dialog() {
    click_on_line 1
    click_on edit
    await "the title dialog" title_dialog_shown
    shot title-dialog
    press_key ctrl+a
    xdotool type --delay 1 "An artist - A title of some length: of the tour"
    shot title-dialog-typed
    press_key alt+t
    shot title-dialog-taken-apart
    press_key alt+p
    await "the end of the title dialog" title_dialog_gone
    shot editor-after-edit
    [ -f "$program/Music/An artist - A title of some length of the tour.mp3" ] ||
        fail "the song should have its new name"
}

tour_preview() {
    click_on_line 1
    click_on preview
    await "the player" player_shown
    shot_of_display preview
    click_at 29 57
    sleep 1.2
    shot_at_once preview-playing
    move_to 143 57
    xdotool mousedown 1
    sleep 1
    shot_at_once preview-fast-forward
    xdotool mouseup 1
    click_at 67 57
    sleep 0.3
    shot_at_once preview-paused
    click_at 270 14
    await "the end of the player" player_gone
}

player_shown() { xdotool search --onlyvisible --name '^A title of some length' >/dev/null; }
player_gone() { ! player_shown; }

tour_second_stage() {
    move_onto several_players
    await "the hovered button" shows several_players hovered
    tour_glide
    await "the second stage" second_stage_shown _several
    move_away
    shot second-stage-several-players
    click_at 450 203
    shot players-list-open
    press_key Down Down Return
    shot players-chosen
    move_onto back_several
    shot second-stage-hover
    xdotool mousedown 1
    shot second-stage-pressed
    xdotool mouseup 1
    await "the menu" menu_shown
    move_away
    shot menu-after-back
    click_on one_player
    await "the second stage" second_stage_shown ""
    move_away
    shot second-stage-one-player
    click_on normal_play
}

# Each frame of the glide beside the other, in one picture.
tour_glide() {
    local top=90 height=320 moment sum last="" kept="" end looks=0
    local -a frames=()
    xdotool click 1 &
    end=$((${EPOCHREALTIME/./} + 1000000))
    while [ ${EPOCHREALTIME/./} -lt $end ]; do
        screen_lines $top $height >"$MEMORY/glide$((looks += 1))"
    done
    for ((moment = 1; moment <= looks; ++moment)); do
        sum=$(cksum <"$MEMORY/glide$moment")
        # Seen twice, or it may have been read while it was being drawn.
        if [ "$sum" = "$last" ] && [ "$sum" != "$kept" ]; then
            frames+=("bgra:$MEMORY/glide$moment")
            kept=$sum
        fi
        last=$sum
    done
    number=$((number + 1))
    height=$((height * SCALE / 100))
    montage -size ${SCREEN_WIDTH}x$height -depth 8 "${frames[@]}" -alpha off \
        -crop $((440 * SCALE / 100))x$height+$((180 * SCALE / 100))+0 +repage -resize 50% -tile 5x -geometry +4+4 \
        "$(printf '%s/%02d-glide.png' "$output" $number)"
    rm "$MEMORY"/glide*
}

# Everything that the chooser refuses, the editor on the way to a game, and the waiting window.
tour_chooser() {
    local few=$MEMORY/few untitled=$MEMORY/untitled
    await "the chooser" chooser_shown
    move_away
    shot chooser
    move_onto quickplay
    shot chooser-hover
    move_onto playlist
    xdotool mousedown 1
    shot chooser-pressed
    xdotool mouseup 1
    file_dialog "Load Playlist" file-dialog ""
    message no-playlist-selected
    click_on create_playlist
    await "the editor" editor_shown
    click_on load
    file_dialog "Load Playlist" editor-load-dialog Mine.m3u
    await "the songs" list_has_line 15
    shot editor-loaded-on-the-way-to-a-game
    click_on exit_editor
    await "the chooser" chooser_shown
    click_on quickplay
    file_dialog "Add Folder" folder-dialog ""
    message no-directory-selected

    mkdir "$few" "$untitled"
    touch "$few"/{1,2,3}.mp3
    seq -f "$untitled/%05g.mp3" 20000 | xargs touch
    click_on quickplay
    file_dialog "Add Folder" folder-with-few-songs "$few"
    message too-few-mp3s
    click_on quickplay
    file_dialog "Add Folder" folder-without-titles "$untitled"
    await "the search" search_begun
    if loading_shown; then
        shot_at_once searching
    else
        echo "The search went by unseen."
    fi
    message no-song-titles n
    await "the chooser" chooser_shown
    rm -r "$few" "$untitled"
}

search_begun() { loading_shown || find_dialog "$MESSAGE"; }

# A list that the game refuses; back from the menu to the chooser.
tour_short_playlist() {
    printf '#EXTM3U\r\none.mp3\r\n' >"$program/PlayList/Short.m3u"
    click_on playlist
    file_dialog "Load Playlist" file-dialog-short-list Short.m3u
    message too-few-songs
    await "the menu" menu_shown
    click_on one_player
    await "the second stage" second_stage_shown ""
    click_on normal_play
    await "the chooser" chooser_shown
}

# question_done <game> <number>
question_done() {
    echo "$1, question $2: $ANSWER"
    if [[ " ${shown_answers:-} " != *" $1-$ANSWER "* ]]; then
        shown_answers="${shown_answers:-} $1-$ANSWER"
        shot "$1-$ANSWER"
    fi
    go_on
}

tour_normal_play() {
    local question
    ANSWERS=
    click_on playlist
    file_dialog "Load Playlist" file-dialog-own-list Mine.m3u
    for question in 1 2 3 4 5 6; do
        await "the question" question_shown
        [ $question -gt 1 ] || show_question
        start_clip
        [ $question -gt 1 ] || show_playing
        if [ $question -gt 1 ]; then
            take_hint
            [ $question -gt 2 ] || shot_at_once hint-taken
        fi
        give_answer
        question_done normal-play $question
    done
}

show_question() {
    move_away
    shot question
    move_onto play
    await "the hovered button" shows play hovered
    shot question-hover
}

show_playing() {
    move_away
    await "the clock" shows choice2 normal
    shot_at_once playing
    move_onto choice2
    await "the hovered choice" shows choice2 hovered
    shot_at_once playing-choice-hover
    xdotool mousedown 1
    await "the pressed choice" shows choice2 pressed
    shot_at_once playing-choice-pressed
    move_away
    xdotool mouseup 1
    await "the released choice" shows choice2 normal
}

# end_of_game <game> <entries in the table>
end_of_game() {
    local game=$1 prompts=$2 prompt
    await "the scores" scores_shown
    move_away
    shot "$game-scores"
    use continue_scores Return
    for ((prompt = 1; prompt <= prompts; ++prompt)); do
        await "the prompt for a name" name_shown
        shot "$game-name-$prompt"
        enter_name "$game $prompt"
    done
    await "the table" table_shown
    move_away
    shot "$game-table"
}

tour_betting_setup() {
    await "the menu" menu_shown
    tab_to several_players
    press_key Return
    await "the second stage" second_stage_shown _several
    settle
    press_key Home Down # in the list of players, three of them
    tab_to betting_several
    shot second-stage-keys
    press_key Return
    await "the chooser" chooser_shown
    tab_to quickplay
    shot chooser-keys
    press_key Return
    file_dialog "Add Folder" folder-dialog-music "$program/Music"
}

# Three players; what each must have in the end is counted along.
tour_betting() {
    local round player question=0 button
    declare -ga score=(0 0 0 0)
    local -a points=(0 140000 70000 35000 25000)
    ANSWERS=
    for round in 1 2 3 4 5 6; do
        for player in 1 2 3; do
            question=$((question + 1))
            button=1
            [ $question -ne 1 ] || button=4
            await "the bet" bet_shown
            [ $question -gt 2 ] || shot "bet-player-$player"
            bet $button
            [ $question -gt 1 ] || shot question-player-1
            start_clip
            if [ $question -eq 1 ]; then
                shot_at_once betting-playing
                settle 10 # until the clock stands at the bet
                shot clock-stopped-at-the-bet
            elif [ $round -le 2 ]; then
                take_hint
                score[player]=$((score[player] > 10000 ? score[player] - 10000 : 0))
            fi
            give_answer
            [ "$ANSWER" = wrong ] || score[player]=$((score[player] + points[button]))
            question_done betting $question
        done
    done
}

# scores_sorted: of the players that have any, best first.
scores_sorted() { printf '%s\n' "${score[@]:1}" | grep -v '^0$' | sort -rn; }

open_display
[ "$SCALE" -eq 100 ] || export QT_SCALE_FACTOR=$((SCALE / 100)).$((SCALE % 100))
read_controls "$program"
start_program "$program"
tour_menu
tour_editor
tour_second_stage
tour_chooser
tour_short_playlist
tour_normal_play
[[ $ANSWERS == *right* ]] && winners=1 || winners=0
end_of_game normal-play "$winners"
use continue_scores Return
HAND=keys
tour_betting_setup
tour_betting
end_of_game betting "$(scores_sorted | wc -l)"
press_key Escape
await_end 0

finish_pictures

echo "H1.dat:"
table_entries "$program/H1.dat"
echo "H2.dat:"
table_entries "$program/H2.dat"
[ "$(table_entries "$program/H2.dat" | cut -d ' ' -f 1)" = "$(scores_sorted)" ] ||
    fail "the table should hold the scores" "$(scores_sorted)"
echo "$number pictures lie in $2."
