#!/usr/bin/env bash
# run.sh <build folder with pictures and songs> <folder to build in>
# Makes the packages, has them checked by the system's own tools, and plays what comes out of them:
# the archive unpacked somewhere, and the Debian package installed for all users. Whoever may not
# install is told so; the status is then 77.
set -u
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
for script in display screens games; do
    # shellcheck disable=SC1090
    . "$source/scripts/$script.sh"
done

[ $# -eq 2 ] || { echo "Usage: run.sh <build folder> <folder to build in>" >&2; exit 2; }
made_in=$(realpath "$1")
build=$(realpath -m "$2")
marks_before=$(played_marks "$made_in/songrush/PlayList/Sample.m3u")
FAILURE_PICTURE=$build-failure.png
HAND=keys
unset XDG_DATA_HOME

quietly() { "$@" >"$build.log" 2>&1 || { cat "$build.log" >&2 && fail "$*"; }; }

make_packages() {
    rm -f "$build"/songrush*.deb "$build"/songrush*.tar.gz
    cd "$source" || exit 1
    quietly cmake --preset package -B "$build" -D SONGRUSH_MADE_IN="$made_in"
    quietly cmake --build "$build"
    # As shipped, but packed faster.
    quietly cpack --config "$build/CPackConfig.cmake" -B "$build" -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip
    deb=$(echo "$build"/songrush*.deb)
    archive=$(echo "$build"/songrush*.tar.gz)
}

check_packages() {
    local tree=$STAGE/tree
    lintian --fail-on error "$deb" || fail "lintian complains"
    dpkg-deb -x "$deb" "$tree" || fail "cannot be unpacked: $deb"
    desktop-file-validate "$tree"/usr/share/applications/*.desktop || fail "the desktop entry"
    appstreamcli validate-tree --no-net "$tree" || fail "the metadata"
}

to_menu() {
    start_program "$program"
    await "the menu" menu_shown
    settle
}

leave_menu() {
    press_key Escape
    await_end 0
}

play_game() {
    ANSWERS=
    to_menu
    click_on one_player
    await "the second stage" second_stage_shown ""
    click_on normal_play
    await "the chooser" chooser_shown
    click_on playlist
    answer_file_dialog "Load Playlist" Sample.m3u
    await "the question" question_shown
    play_to_scores
    use continue_scores Return
    if [[ $ANSWERS == *right* ]]; then
        enter_name Eva
    fi
    await "the table" table_shown
    leave_menu
}

# expect_played <folder>: it has the scores and the marked songs of a game.
expect_played() {
    local marks
    [ -f "$1/H1.dat" ] || fail "there are no scores in $1"
    marks=$(played_marks "$1/PlayList/Sample.m3u")
    [ "$marks" -eq $((marks_before + 6)) ] || fail "$marks songs are marked in $1"
}

play_unpacked() {
    local place="$STAGE/a place of one's own"
    mkdir "$place"
    tar -xzf "$archive" -C "$place" || fail "cannot be unpacked: $archive"
    program=$(echo "$place"/songrush*)
    read_controls "$program"
    play_game
    expect_played "$program"
    [ -z "$(ls -A "$HOME")" ] || fail "the unpacked program left files in the home: $(ls -A "$HOME")"
}

# Finds out how to install, and as whom to play: not as the superuser, who may write everywhere.
may_install() {
    as_root=()
    as_player=()
    if [ "$(id -u)" -eq 0 ]; then
        as_player=(setpriv --reuid=65534 --regid=65534 --clear-groups)
    elif sudo -n true 2>/dev/null; then
        as_root=(sudo -n)
    else
        echo "Not installed, as this needs the superuser."
        return 1
    fi
    if dpkg-query -W songrush >/dev/null 2>&1; then
        echo "Not installed, as songrush is installed here."
        return 1
    fi
}

remove_package() { "${as_root[@]}" dpkg --purge songrush >/dev/null; }

install_package() {
    trap 'close_display; remove_package' EXIT
    "${as_root[@]}" dpkg -i "$deb" >/dev/null || fail "cannot be installed: $deb"
    dpkg-query -L songrush >"$STAGE/files"
    # The program, started as the player who shall own the home.
    program=$STAGE/installed
    mkdir "$program"
    printf '#!/bin/sh\nexec %s /usr/games/songrush\n' "${as_player[*]}" >"$program/songrush"
    chmod +x "$program/songrush"
    [ ${#as_player[@]} -eq 0 ] || chown -R 65534:65534 "$STAGE"/{home,config,runtime}
    chmod 711 "$STAGE"
}

play_installed() {
    local shipped=/usr/share/games/songrush own=$HOME/.local/share/Songrush
    play_game
    expect_played "$own"
    diff -r "$shipped/Music" "$own/Music" || fail "the songs in $own are others"
    # A picture of the player's own is shown instead of the shipped one.
    convert -size 800x600 xc:#123456 "BMP3:$own/Images/Back.bmp"
    to_menu
    await "the own picture" has_pixel 60 300 123456
    leave_menu
}

# Where nothing can be kept the game says so and can be played.
play_without_a_home() {
    local home=$HOME
    HOME=$STAGE/nothing
    mkdir -m 555 "$HOME"
    start_program "$program"
    answer_message Return
    await "the menu" menu_shown
    leave_menu
    HOME=$home
}

expect_removed() {
    local file
    remove_package || fail "cannot be removed"
    trap close_display EXIT
    while read -r file; do
        [[ $file == *songrush* ]] && [ -e "$file" ] && fail "left by the package: $file"
    done <"$STAGE/files"
    expect_played "$HOME/.local/share/Songrush"
}

make_packages
open_display
check_packages
play_unpacked
may_install || exit 77
install_package
play_installed
play_without_a_home
expect_removed
echo "$(basename "$deb") and $(basename "$archive") can be played."
