# shellcheck shell=bash
# Sourced after display.sh. Knows the program's screens: where their buttons stand and how to tell
# by pixels which of them are shown and in which state. Colours are read from the pictures of the
# program at hand.
# shellcheck disable=SC2086,SC2046,SC2053 # several words are kept in one string, some as patterns

declare -A PLACE    # control: left, top, width, height
declare -A PROBE    # control: a point (x, y) and its colours normal, hovered, pressed
declare -A BMP      # picture: offset of the pixels, width, height, bytes of a row and of a pixel
MESSAGE='(Songrush|Mp3 Editor)' # the titles that messages have
RING=ffdd78         # frame of the control that the keys are on
DIALOG_EDGE=0096fa  # left edge of the small forms
LINES_TOP=123       # of the editor's list
LINE_HEIGHT=22

# read_controls <program folder>: for windows of $SCALE.
read_controls() {
    local picture
    local -A sets=([100]="" [150]=/1.5x [200]=/2x [300]=/3x)
    FOLDER=$1
    IMAGES=$FOLDER/Images${sets[$SCALE]}
    for picture in bSingle bMulti bEditor X bMin bPlayBig bHint bCont BGeneric; do
        open_bmp $picture
    done
    skin_button x X right 0
    skin_button minimise bMin $((${PLACE[x]%% *} - 4 - $(skin_width bMin))) 10

    skin_button one_player bSingle center 192
    skin_button several_players bMulti center 302
    skin_button editor bEditor center 412
    plain_button normal_play 200 200 400 50
    plain_button betting 200 260 400 50
    plain_button back 300 370 200 50
    plain_button normal_play_several 200 220 400 50
    plain_button betting_several 200 280 400 50
    plain_button back_several 300 390 200 50
    PLACE[players]="410 190 80 26"

    plain_button quickplay 200 200 400 60
    plain_button playlist 200 280 400 60
    plain_button create_playlist 200 360 400 60

    local button left=20 top=512
    for button in add_file add_dir remove edit preview load save exit_editor; do
        plain_button $button $left $top 184 36
        left=$((left + 192))
        [ $button != edit ] || { left=20 && top=556; }
    done

    local choice height
    height=$(skin_height BGeneric)
    for choice in 1 2 3 4; do
        skin_button choice$choice BGeneric center $((220 + (choice - 1) * (height + 4)))
    done
    skin_button play bPlayBig center $((300 - $(skin_height bPlayBig) / 2))
    skin_button hint bHint $((790 - $(skin_width bHint))) $((590 - $(skin_height bHint)))
    skin_button continue bCont center $((590 - $(skin_height bCont)))
    skin_button continue_scores bCont center $((596 - $(skin_height bCont)))
}

# open_bmp <picture>
open_bmp() {
    # The header from byte 10: offset, its own size, width, height, planes and bits of a pixel.
    set -- "$1" $(od -An -v -tu4 -j 10 -N 20 "$IMAGES/$1.bmp")
    local bytes=$(($6 >> 19))
    BMP[$1]="$2 $4 $5 $((($4 * bytes + 3) / 4 * 4)) $bytes"
}

# Of a frame, as at 100 percent.
skin_width() { set -- ${BMP[$1]} && echo $(($2 * 100 / SCALE)); }
skin_height() { set -- ${BMP[$1]} && echo $(($3 * 100 / SCALE / 3)); }

# bmp_row <picture> <y> <pixels>: a line "blue green red" for each pixel from the left.
bmp_row() {
    local file=$IMAGES/$1.bmp y=$2 count=$3
    set -- ${BMP[$1]}
    od -An -v -tx1 -w$5 -j $(($1 + ($3 - 1 - y) * $4)) -N $((count * $5)) "$file"
}

# skin_button <control> <picture> <left, "center" or "right"> <top>
skin_button() {
    local control=$1 picture=$2 left=$3 top=$4 width height frame x pixel middle
    local -a normal hovered pressed
    width=$(skin_width "$picture")
    height=$(skin_height "$picture")
    [ "$left" = center ] && left=$(((800 - width) / 2))
    [ "$left" = right ] && left=$((800 - width))
    PLACE[$control]="$left $top $width $height"
    # A point that tells the states apart: on the middle line, right of the focus frame and left of
    # any caption.
    middle=$((height / 2))
    pixel=$((middle * SCALE / 100))
    frame=$((height * SCALE / 100))
    mapfile -t normal < <(bmp_row "$picture" $pixel $((SCALE / 2)))
    mapfile -t hovered < <(bmp_row "$picture" $((frame + pixel)) $((SCALE / 2)))
    mapfile -t pressed < <(bmp_row "$picture" $((2 * frame + pixel)) $((SCALE / 2)))
    for ((x = 5; x < 50; ++x)); do
        pixel=$((x * SCALE / 100))
        if differ "${normal[pixel]}" "${hovered[pixel]}" "${pressed[pixel]}"; then
            PROBE[$control]="$((left + x)) $((top + middle)) $(rgb ${normal[pixel]})"
            PROBE[$control]+=" $(rgb ${hovered[pixel]}) $(rgb ${pressed[pixel]})"
            return
        fi
    done
    fail "the states of $picture.bmp look alike"
}

# differ <normal> <hovered> <pressed>: three colours, none of them the transparent black.
differ() {
    [ "$1" != "$2" ] && [ "$2" != "$3" ] && [ "$1" != "$3" ] &&
        [[ " $1 $2 $3 " != *" 00 00 00 "* ]]
}

rgb() { echo $3$2$1; }

# plain_button <control> <left> <top> <width> <height>: drawn by the program in a gradient, whose
# colours at the left edge are given as patterns.
plain_button() {
    PLACE[$1]="$2 $3 $4 $5"
    PROBE[$1]="$(($2 + 4)) $(($3 + $5 / 2)) 0000[ef]? 9?00[ef]? 0000[67]?"
}

# shows <control> [normal, hovered or pressed]
shows() {
    local x y normal hovered pressed
    read -r x y normal hovered pressed <<<"${PROBE[$1]}"
    read_pixel $x $y
    case ${2:-any} in
    normal) [[ $COLOR == $normal ]] ;;
    hovered) [[ $COLOR == $hovered ]] ;;
    pressed) [[ $COLOR == $pressed ]] ;;
    any) [[ $COLOR == $normal || $COLOR == $hovered || $COLOR == $pressed ]] ;;
    esac
}

hidden() { ! shows "$1"; }

has_pixel() { read_pixel "$1" "$2" && [ "$COLOR" = "$3" ]; }

# Whether the keys are on the control: the frame is seen at the middle of its top.
focused() {
    set -- ${PLACE[$1]}
    has_pixel $(($1 + $3 / 2)) $(($2 + 1)) $RING
}

move_onto() {
    await "the button $1" shows "$1"
    set -- ${PLACE[$1]}
    move_to $(($1 + $3 / 2)) $(($2 + $4 / 2))
}

# Where it disturbs no button.
move_away() { move_to 60 300; }

click_on() { move_onto "$1" && xdotool click 1; }

# tab_to <control>: moves the keys there.
tab_to() {
    local presses=0
    await "the button $1" shows "$1"
    settle
    until focused "$1"; do
        [ $((presses += 1)) -le 15 ] || fail "the Tab key does not lead to $1"
        press_key Tab
        settle
    done
}

# arrow_to <control> <key>: moves the keys there by an arrow key.
arrow_to() {
    await "the button $1" shows "$1"
    settle
    press_key "$2"
    await "the frame of $1" focused "$1"
}

# The screens.

# choose_size <percent>: on the menu, where windows of up to 200 percent fit the display.
choose_size() {
    local -A left=([100]=106 [150]=162 [200]=218)
    click_at $((left[$1] + 28)) 579
    sized "$1"
    await "the menu at $1 percent" menu_shown
}

# sized <percent>: from now on the windows have that size.
sized() {
    SCALE=$1
    read_controls "$FOLDER"
}

menu_shown() { shows one_player && shows several_players && shows editor; }
second_stage_shown() { shows "back$1" && shows "betting$1" && hidden editor; }
chooser_shown() { shows quickplay && shows playlist && shows create_playlist; }
editor_shown() { shows add_file && shows exit_editor; }
title_dialog_shown() { has_pixel 100 300 $DIALOG_EDGE; }
title_dialog_gone() { ! title_dialog_shown; }
question_shown() { shows play; }
bet_shown() { choices_shown && hidden play && hidden hint; }
choices_shown() { shows choice1 && shows choice2 && shows choice3 && shows choice4; }
playing_shown() { choices_shown && shows hint; }
# A score row is drawn where the board has none.
row_shown() { has_pixel 595 $((175 + 36 * ($1 - 1) + 17)) 000064; }
result_shown() { shows continue && ! row_shown 1; }
scores_shown() { shows continue_scores && row_shown 1 && ! row_shown 10; }
table_shown() { shows continue_scores && row_shown 10; }
name_shown() { has_pixel 180 300 $DIALOG_EDGE; }
loading_shown() { has_pixel 160 300 $DIALOG_EDGE; }

# Whether the result on the board is a right answer: the points are red, a title would be green.
answer_was_right() {
    if has_color 355 60 ff0000; then
        return 0
    fi
    has_color 355 60 3ce63c || fail "the board tells neither right nor wrong"
    return 1
}

# answer_message <key>: a message is on the screen and goes away.
answer_message() {
    await "a message" find_dialog "$MESSAGE"
    settle
    press_key "$1"
    await "the end of the message" no_dialog "$MESSAGE"
}

# answer_file_dialog <title> <path>
answer_file_dialog() {
    await "the dialog $1" find_dialog "$1"
    settle
    enter_text "$2"
    await "the end of the dialog $1" no_dialog "$1"
}

# click_on_line <line> [key to hold]: of the editor's list as it is scrolled, from 0.
click_on_line() {
    move_to 200 $((LINES_TOP + LINE_HEIGHT * $1 + LINE_HEIGHT / 2))
    [ $# -eq 1 ] || xdotool keydown "$2"
    xdotool click 1
    [ $# -eq 1 ] || xdotool keyup "$2"
}

# list_has_line <line>: of the editor's list as it is scrolled, from 0.
list_has_line() {
    local y=$((LINES_TOP + LINE_HEIGHT * $1))
    screen_lines $y $LINE_HEIGHT | od -An -v -tx4 -w4 | grep -q 'e2e2ff$'
}

# The numbers of the choices that a hint has left.
choices_left() {
    local choice
    for choice in 1 2 3 4; do
        shows choice$choice && echo $choice
    done
}
