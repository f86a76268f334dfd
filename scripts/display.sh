# shellcheck shell=bash
# Sourced. Gives the program a virtual display, a home and settings of its own, all gone at the end,
# and the means to drive it there: mouse, keys, pixels, windows, pictures. Whatever has to happen
# is looked for again and again up to a limit, never slept for.

LIMIT=${LIMIT:-30} # seconds that a single step may take
SCREEN_WIDTH=1024
SCREEN_HEIGHT=768
SCALE=100 # size of the program's windows in percent; points on the screen are given as at 100
PROGRAM=
PICTURES=()
moments=0

# Ends the script; with a display open, a picture of the moment is left as $FAILURE_PICTURE.
fail() {
    echo "FAILED: $* (lines ${BASH_LINENO[*]})" >&2
    if [ -n "${FAILURE_PICTURE:-}" ] && [ -s "${SCREEN:-}" ]; then
        picture "$FAILURE_PICTURE"
        finish_pictures
        echo "The display then: $FAILURE_PICTURE" >&2
    fi
    [ -s "${STAGE:-}/output" ] && tail -n 40 "$STAGE/output" >&2
    exit 1
}

open_display() {
    STAGE=$(mktemp -d) || exit 1
    # In memory where there is such a folder, for the screen changes all the time.
    MEMORY=$(mktemp -d -p /dev/shm 2>/dev/null || mktemp -d) || exit 1
    trap close_display EXIT
    trap 'exit 1' INT TERM HUP
    mkdir -m 700 "$STAGE"/home "$STAGE"/config "$STAGE"/runtime
    export HOME=$STAGE/home XDG_CONFIG_HOME=$STAGE/config XDG_RUNTIME_DIR=$STAGE/runtime
    export SDL_AUDIODRIVER=${SDL_AUDIODRIVER:-dummy} QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
    export DBUS_SESSION_BUS_ADDRESS=disabled: # a session's services are no part of this
    unset WAYLAND_DISPLAY QT_SCALE_FACTOR
    # The server writes the number of the display that it found free, and keeps what is on the
    # screen in a file, where a pixel is quickly read. It would begin anew whenever the last program
    # leaves, and refuse who comes just then.
    Xvfb -displayfd 3 -screen 0 ${SCREEN_WIDTH}x${SCREEN_HEIGHT}x24 -nolisten tcp -noreset \
        -fbdir "$MEMORY" 3>"$STAGE/number" 2>"$STAGE/server" &
    SERVER=$!
    local end=$((SECONDS + LIMIT))
    until [ -s "$STAGE/number" ]; do
        if [ $SECONDS -ge $end ] || ! kill -0 $SERVER 2>/dev/null; then
            fail "no virtual display: $(cat "$STAGE/server")"
        fi
        sleep 0.02
    done
    DISPLAY=:$(cat "$STAGE/number")
    export DISPLAY
    SCREEN=$MEMORY/Xvfb_screen0
    PIXELS=$(($(stat -c %s "$SCREEN") - SCREEN_WIDTH * SCREEN_HEIGHT * 4)) # after the header
}

close_display() {
    trap - EXIT
    if [ -n "$PROGRAM" ]; then
        kill -KILL "$PROGRAM" 2>/dev/null
        wait "$PROGRAM" 2>/dev/null
    fi
    kill "$SERVER" 2>/dev/null
    wait "$SERVER" 2>/dev/null
    rm -rf "$STAGE" "$MEMORY"
}

# copy_program <program folder> <folder>: with the songs left where they are.
copy_program() {
    mkdir -p "$2"
    cp -a "$1/songrush" "$1/Images" "$1/PlayList" "$2"
    sed -i 's/^#Songrush:1/#Songrush:0/' "$2/PlayList/Sample.m3u"
    ln -s "$1/Music" "$2/Music"
}

# start_program <folder>: from elsewhere, as nothing may depend on the current folder.
start_program() {
    (cd / && exec "$1/songrush") >>"$STAGE/output" 2>&1 &
    PROGRAM=$!
}

running() { kill -0 "$PROGRAM" 2>/dev/null; }

# await <what> <command>...: until the command succeeds.
await() {
    local what=$1 end=$((SECONDS + LIMIT))
    shift
    until "$@"; do
        [ $SECONDS -lt $end ] || fail "waited $LIMIT seconds in vain for $what"
        [ -z "$PROGRAM" ] || running || fail_ended "$what"
        sleep 0.02
    done
}

fail_ended() {
    local status=0
    wait "$PROGRAM" || status=$?
    PROGRAM=
    fail "the program ended with status $status before $1"
}

# await_end <status>: until the program has ended, with that status.
await_end() {
    local end=$((SECONDS + LIMIT)) status=0
    while running; do
        [ $SECONDS -lt $end ] || fail "the program did not end within $LIMIT seconds"
        sleep 0.02
    done
    wait "$PROGRAM" || status=$?
    PROGRAM=
    [ $status -eq "$1" ] || fail "the program ended with status $status instead of $1"
}

# read_pixel <x> <y>: its colour as rrggbb in $COLOR.
read_pixel() {
    local x=$(($1 * SCALE / 100)) y=$(($2 * SCALE / 100))
    # shellcheck disable=SC2046 # three bytes, three words
    set -- $(od -An -tx1 -j $((PIXELS + (y * SCREEN_WIDTH + x) * 4)) -N 3 "$SCREEN")
    # shellcheck disable=SC2034 # for the caller
    COLOR=$3$2$1
}

# settle [looks]: waits until the screen has been the same for a number of looks, 1 unless told,
# but not for long: a running clock never keeps still.
settle() {
    local wanted=${1:-1} before now same=0 looks=0
    before=$(cksum <"$SCREEN")
    while [ $same -lt "$wanted" ] && [ $((looks += 1)) -lt $((15 * wanted)) ]; do
        sleep 0.05
        now=$(cksum <"$SCREEN")
        [ "$now" = "$before" ] && same=$((same + 1)) || same=0
        before=$now
    done
}

# screen_lines <y> <height>: the pixels of some lines of the screen.
screen_lines() {
    local top=$(($1 * SCALE / 100)) height=$(($2 * SCALE / 100))
    tail -c +$((PIXELS + 1 + top * SCREEN_WIDTH * 4)) "$SCREEN" |
        head -c $((height * SCREEN_WIDTH * 4))
}

# has_color <y> <height> <rrggbb>: whether some lines of the screen have a pixel of that colour.
has_color() { screen_lines "$1" "$2" | od -An -v -tx4 -w4 | grep -q "$3\$"; }

# picture <file> [convert's options]: of the screen as it is now; made in the background.
picture() {
    local file=$1 moment=$MEMORY/moment$((++moments))
    shift
    cp "$SCREEN" "$moment"
    (convert "xwd:$moment" "$@" "$file" && rm "$moment") &
    PICTURES+=($!)
}

# Waits until all pictures are made.
finish_pictures() {
    [ ${#PICTURES[@]} -eq 0 ] || wait "${PICTURES[@]}"
    PICTURES=()
}

move_to() { xdotool mousemove $(($1 * SCALE / 100)) $(($2 * SCALE / 100)); }
click_at() { move_to "$1" "$2" && xdotool click 1; }
press_key() { xdotool key "$@"; }
enter_text() { xdotool type --delay 1 "$1" && xdotool key Return; }

# find_dialog <title>: a message or dialog on the screen; its window in $DIALOG.
find_dialog() {
    for DIALOG in $(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null); do
        xprop -id "$DIALOG" _NET_WM_WINDOW_TYPE 2>/dev/null | grep -q _TYPE_DIALOG && return
    done
    return 1
}

no_dialog() { ! find_dialog "$1"; }
