#!/usr/bin/env bash
# run.sh <program folder> <songrush_ask_to_close> [case...]
# Runs the real program on virtual displays. Every case has its own display, home and copy of the
# program folder.
set -u
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../scripts" && pwd)
# shellcheck source=scripts/display.sh
. "$scripts/display.sh"
# shellcheck source=scripts/screens.sh
. "$scripts/screens.sh"
# shellcheck source=scripts/games.sh
. "$scripts/games.sh"

[ $# -ge 2 ] || { echo "Usage: run.sh <program folder> <songrush_ask_to_close> [case...]" >&2; exit 2; }
original=$(cd "$1" && pwd) || exit 1
ask_to_close=$(realpath "$2")
shift 2
[ -f "$original/PlayList/Sample.m3u" ] || fail "$1 has no sample songs"
LIMIT=60 # programs under sanitizers are slow
HAND=keys

# The screens, one after the other; each function leads there from the start.

to_menu() {
    start_program "$program"
    await "the menu" menu_shown
    settle
}

to_editor() {
    to_menu
    click_on editor
    await "the editor" editor_shown
}

to_second_stage() {
    to_menu
    click_on one_player
    await "the second stage" second_stage_shown ""
}

to_chooser() {
    to_second_stage
    click_on normal_play
    await "the chooser" chooser_shown
}

to_question() {
    to_chooser
    click_on playlist
    answer_file_dialog "Load Playlist" "$list"
    await "the question" question_shown
}

to_playing() {
    to_question
    start_clip
}

to_result() {
    to_playing
    give_answer
}

to_scores() {
    to_question
    play_to_scores
}

to_table() {
    to_scores
    use continue_scores Return
    if [[ $ANSWERS == *right* ]]; then
        enter_name Eva
    fi
    await "the table" table_shown
}

# expect_marks <number>: of songs that the list has as played.
expect_marks() {
    local marks
    marks=$(played_marks "$list")
    [ "$marks" -eq "$1" ] || fail "$marks songs are marked as played instead of $1"
}

# The cases.

# left_by_close_button <screen> <played songs>
left_by_close_button() {
    "to_$1"
    settle
    click_on x
    await_end 0
    expect_marks "$2"
}

the_close_button_ends_the_menu() { left_by_close_button menu 0; }
the_close_button_ends_the_editor() { left_by_close_button editor 0; }
the_close_button_ends_the_second_stage() { left_by_close_button second_stage 0; }
the_close_button_ends_the_chooser() { left_by_close_button chooser 0; }
the_close_button_ends_the_board_before_play() { left_by_close_button question 1; }
the_close_button_ends_the_board_while_playing() { left_by_close_button playing 1; }
the_close_button_ends_the_result() { left_by_close_button result 1; }
the_close_button_ends_the_scores() { left_by_close_button scores 6; }
the_close_button_ends_the_table() {
    left_by_close_button table 6
    [ -f "$program/H1.dat" ] || fail "the table was not written"
}

closed_by_window_manager() {
    "to_$1"
    settle
    "$ask_to_close" "$(xdotool search --onlyvisible --name '^Songrush$')"
    await_end 0
    expect_marks "$2"
}

a_window_manager_closes_the_menu() { closed_by_window_manager menu 0; }
a_window_manager_closes_the_chooser() { closed_by_window_manager chooser 0; }
a_window_manager_closes_the_board() { closed_by_window_manager playing 1; }
a_window_manager_closes_the_table() { closed_by_window_manager table 6; }

terminated() {
    "to_$1"
    kill -TERM "$PROGRAM"
    await_end 0
    expect_marks "$2"
}

a_termination_ends_the_editor() { terminated editor 0; }
a_termination_ends_a_question() { terminated playing 1; }
a_termination_ends_the_scores() { terminated scores 6; }
a_termination_ends_an_open_message() {
    to_chooser
    click_on playlist
    await "the dialog" find_dialog "Load Playlist"
    press_key Escape
    await "the message" find_dialog Songrush
    kill -TERM "$PROGRAM"
    await_end 0
}

what_is_typed_ahead_of_the_title_dialog_stays_out_of_the_list() {
    to_editor
    click_on load
    answer_file_dialog "Load Playlist" "$list"
    await "the songs" list_has_line 16
    click_on_line 1
    settle
    kill -STOP "$PROGRAM"
    press_key Return Delete
    kill -CONT "$PROGRAM"
    await "the title dialog" title_dialog_shown
    settle
    press_key Escape
    await "the end of the title dialog" title_dialog_gone
    settle
    click_on save
    answer_file_dialog "Save Playlist" "$program/PlayList/All.m3u"
    await "all songs" all_songs_saved
    click_on x
    await_end 0
}

all_songs_saved() {
    [ "$(grep -c mp3 "$program/PlayList/All.m3u" 2>/dev/null)" = "$(grep -c mp3 "$list")" ]
}

a_second_copy_only_says_so() {
    local first second=$STAGE/second before
    to_menu
    first=$PROGRAM
    copy_program "$original" "$second"
    before=$(snapshot)
    start_program "$second"
    await "the message" find_dialog Songrush
    answer_message Return
    await_end 0
    PROGRAM=$first
    [ "$(snapshot)" = "$before" ] || fail "the second copy changed settings or files"
    menu_shown || fail "the menu of the first copy is gone"
}

# What the settings and the program folders hold, with times.
snapshot() { (cd "$STAGE" && find config program second -type f -printf '%p %s %T@\n' | sort); }

a_killed_copy_does_not_stop_the_next() {
    to_playing
    kill -KILL "$PROGRAM"
    await_end 137
    to_menu
    no_dialog Songrush || fail "there is a message"
}

a_moved_program_is_remembered() {
    local moved="$STAGE/moved here, to a longer name"
    to_menu
    press_key Escape
    await_end 0
    mv "$program" "$moved"
    program=$moved
    to_menu
    grep -q "^AppPath=.*$moved" "$XDG_CONFIG_HOME/Songrush/Songrush.conf" ||
        fail "the settings hold another folder: $(cat "$XDG_CONFIG_HOME/Songrush/Songrush.conf")"
}

a_chosen_window_size_is_kept() {
    to_menu
    choose_size 200
    click_on one_player
    await "the second stage" second_stage_shown ""
    click_on back
    await "the menu" menu_shown
    choose_size 150
    press_key ctrl+plus
    sized 200
    to_the_end_and_back 200
    choose_size 100
    to_the_end_and_back 100
}

# to_the_end_and_back <percent>: ends the program by its X and starts it again.
to_the_end_and_back() {
    await "the menu at $1 percent" menu_shown
    click_on x
    await_end 0
    to_menu
}

a_window_size_that_does_not_fit_is_reduced() {
    local settings=$XDG_CONFIG_HOME/Songrush/Songrush.conf
    mkdir "$XDG_CONFIG_HOME/Songrush"
    printf '[Window]\nSize=200\nLastSize=200\n' >"$settings"
    to_menu
    click_on x
    await_end 0
    grep -q '^Size=200' "$settings" || fail "the choice is lost: $(cat "$settings")"
    grep -q '^LastSize=100' "$settings" || fail "the next start takes a detour"
}

a_large_screen_gets_large_windows() {
    sized 200
    to_menu
    click_on x
    await_end 0
}

missing_pictures_are_told_once() {
    rm -r "$program/Images"
    start_program "$program"
    answer_message Return
    settle 3
    no_dialog Songrush || fail "there is another message"
    click_at 400 236 # one player
    await "the second stage" second_stage_shown ""
    no_dialog Songrush || fail "there is another message"
    click_on back
    await "the end of the second stage" hidden back
    press_key Escape
    await_end 0
}

a_table_that_cannot_be_written_is_told_once() {
    ln -s "no such folder/H1.dat" "$program/H1.dat"
    to_table
    press_key Return
    answer_message Return
    await "the menu" menu_shown
    settle 3
    no_dialog Songrush || fail "there is another message"
    click_on x
    await_end 0
    expect_marks 6
}

# The games by keys alone; the mouse is out of the window all the time.
# choose_players_by_keys <one_player or several_players>
choose_players_by_keys() {
    to_menu
    move_to 1000 740
    press_key Tab
    await "the frame of the first button" focused one_player
    [ "$1" = one_player ] || arrow_to "$1" Down
    press_key Return
}

play_list_by_keys() {
    await "the chooser" chooser_shown
    await "the frame of the first button" focused quickplay
    arrow_to playlist Down
    press_key Return
    answer_file_dialog "Load Playlist" "$list"
}

# The rest of a question: the answer by the keys on the button itself, or by its digit.
answer_by_keys() {
    await "the frame of the play button" focused play
    start_clip
    await "the frame of the first choice" focused choice1
    if [ "$1" = digit ]; then
        give_answer
    else
        arrow_to choice2 Down
        press_key space
        await "the result" result_shown
        ANSWERS="$ANSWERS $(answer_was_right && echo right || echo wrong)"
    fi
    go_on_by_keys continue
    await "the end of the result" result_gone
}

# end_by_keys <file of the scores> <names to be entered>
end_by_keys() {
    local name
    await "the scores" scores_shown
    go_on_by_keys continue_scores
    for ((name = 1; name <= $2; ++name)); do
        enter_name "Name $name"
    done
    await "the table" table_shown
    go_on_by_keys continue_scores
    await "the menu" menu_shown
    await "the frame of the first button" focused one_player
    press_key Escape
    await_end 0
    [ "$(table_entries "$program/$1" | wc -l)" = "$2" ] || fail "there should be $2 names in $1"
}

normal_play_needs_no_mouse() {
    choose_players_by_keys one_player
    await "the second stage" second_stage_shown ""
    await "the frame of the first button" focused normal_play
    arrow_to betting Down
    arrow_to normal_play Up
    press_key space
    play_list_by_keys
    for question in 1 2 3 4 5 6; do
        await "the question" question_shown
        answer_by_keys "$([ $question = 1 ] || echo digit)"
    done
    if [[ $ANSWERS == *right* ]]; then end_by_keys H1.dat 1; else end_by_keys H1.dat 0; fi
}

betting_needs_no_mouse() {
    local -a right=(0 0)
    choose_players_by_keys several_players
    await "the second stage" second_stage_shown _several
    settle
    press_key Down Up # in the list of players, back to two
    arrow_to normal_play_several Tab
    arrow_to betting_several Down
    press_key Return
    play_list_by_keys
    for question in 1 2 3 4 5 6 7 8 9 10 11 12; do
        await "the bet" bet_shown
        await "the frame of the first bet" focused choice1
        if [ $question = 1 ]; then
            arrow_to choice2 Down
            press_key Return
        else
            bet 4
        fi
        answer_by_keys digit
        [[ $ANSWERS != *right ]] || right[question % 2]=1
    done
    end_by_keys H2.dat $((right[0] + right[1]))
}

cases=(
    normal_play_needs_no_mouse
    betting_needs_no_mouse
    the_close_button_ends_the_menu
    the_close_button_ends_the_editor
    the_close_button_ends_the_second_stage
    the_close_button_ends_the_chooser
    the_close_button_ends_the_board_before_play
    the_close_button_ends_the_board_while_playing
    the_close_button_ends_the_result
    the_close_button_ends_the_scores
    the_close_button_ends_the_table
    a_window_manager_closes_the_menu
    a_window_manager_closes_the_chooser
    a_window_manager_closes_the_board
    a_window_manager_closes_the_table
    a_termination_ends_the_editor
    a_termination_ends_a_question
    a_termination_ends_the_scores
    a_termination_ends_an_open_message
    what_is_typed_ahead_of_the_title_dialog_stays_out_of_the_list
    a_second_copy_only_says_so
    a_killed_copy_does_not_stop_the_next
    a_moved_program_is_remembered
    a_chosen_window_size_is_kept
    a_window_size_that_does_not_fit_is_reduced
    a_large_screen_gets_large_windows
    missing_pictures_are_told_once
    a_table_that_cannot_be_written_is_told_once
)
[ $# -eq 0 ] || cases=("$@")

run_case() (
    case $1 in
    a_chosen_window_size_is_kept) SCREEN_WIDTH=1700 SCREEN_HEIGHT=1300 ;;
    a_large_screen_gets_large_windows) SCREEN_WIDTH=3840 SCREEN_HEIGHT=2160 ;;
    esac
    open_display
    program=$STAGE/program
    list=$program/PlayList/Sample.m3u
    copy_program "$original" "$program"
    read_controls "$original"
    "$1"
)

passed=0
failed=0
for name in "${cases[@]}"; do
    if output=$(run_case "$name" 2>&1); then
        passed=$((passed + 1))
        echo "passed  $name"
    else
        failed=$((failed + 1))
        echo "FAILED  $name"
        printf '%s\n' "$output"
    fi
done
echo "$passed passed, $failed failed"
[ $failed -eq 0 ]
