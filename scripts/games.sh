# shellcheck shell=bash
# Sourced after screens.sh. Plays the program's games, by mouse or by keys.

HAND=mouse     # or keys
ANSWERS=       # of the game: "right" or "wrong" for each question
RANDOM=$$

# use <control> <key>: presses a button by what the game is played with.
use() {
    if [ $HAND = mouse ]; then
        click_on "$1"
    else
        await "the button $1" shows "$1"
        press_key "$2"
    fi
}

start_clip() {
    await "the question" question_shown
    use play space
    await "the four choices" playing_shown
}

take_hint() {
    use hint h
    await "the end of the hint button" hidden hint
    await "two choices less" two_choices_left
}

two_choices_left() {
    local left
    left=$(choices_left)
    [ ${#left} -eq 3 ] # two digits and a line end between them
}

# The titles cannot be read from outside: any choice left will do.
give_answer() {
    local -a left
    mapfile -t left < <(choices_left)
    local choice=${left[RANDOM % ${#left[@]}]}
    use "choice$choice" "$choice"
    await "the result" result_shown
    if answer_was_right; then ANSWER=right; else ANSWER=wrong; fi
    ANSWERS="$ANSWERS $ANSWER"
}

go_on() {
    use continue Return
    await "the end of the result" result_gone
}

result_gone() { ! result_shown; } # the scores have the same button

# The keys stand where they are needed, in sight, and Return goes on.
go_on_by_keys() {
    await "the frame of $1" focused "$1"
    press_key Return
}

# play_to_scores: the six questions of a game of one player.
play_to_scores() {
    for _ in 1 2 3 4 5 6; do
        start_clip
        give_answer
        go_on
    done
    await "the scores" scores_shown
}

# bet <button>: 1 to 4.
bet() {
    await "the bet" bet_shown
    use "choice$1" "$1"
    await "the question" question_shown
}

# enter_name <name>: into the prompt that is shown.
enter_name() {
    local prompt
    await "the prompt for a name" name_shown
    settle
    prompt=$(prompt_sum)
    enter_text "$1"
    await "the end of the prompt" prompt_is_other "$prompt"
}

prompt_is_other() { [ "$(prompt_sum)" != "$1" ]; }
prompt_sum() { screen_lines 220 60 | cksum; }

# played_marks <playlist>: how many songs are marked as played.
played_marks() { grep -c '^#Songrush:1' "$1"; }

# table_entries <high-score file>: "score name" of the entries that players made, best first.
table_entries() {
    tr -d '\r' <"$1" | awk 'NR % 3 == 1 { name = $0 } NR % 3 == 2 && $0 > 0 { print $0, name }'
}
