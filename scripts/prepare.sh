# shellcheck shell=bash
# Sourced by run.sh, test.sh and package.sh: names every package that the project uses and installs
# those that are missing. `prepare <group>...` takes the groups below.

PACKAGES_BUILD=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libgl-dev libmpg123-dev
    libebur128-dev libsdl2-dev libtag1-dev fonts-liberation fonts-quicksand
    python3 abcmidi fluidsynth fluidr3mono-gm-soundfont lame)
PACKAGES_RUN=(libqt6svg6 qt6-qpa-plugins qt6-wayland fonts-liberation fonts-quicksand)
PACKAGES_PACKAGE=(dpkg-dev file gzip lintian)
PACKAGES_TOUR=(xvfb xdotool dbus at-spi2-core gir1.2-atspi-2.0 python3-gi python3-pil python3-numpy)
PACKAGES_TEST=(libgtest-dev libmp3lame-dev clang-format shellcheck desktop-file-utils appstream
    qt6-gtk-platformtheme weston)
PACKAGES_GATES=(clang clang-tidy)
PACKAGES_FUZZ=(clang libclang-rt-14-dev llvm)
PACKAGES_FAULTS=(strace pulseaudio pulseaudio-utils)
PACKAGES_BENCH=(libbenchmark-dev libmp3lame-dev)

missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

prepare() {
    local group
    local -a wanted=() missing
    for group in "$@"; do
        case $group in
        build) wanted+=("${PACKAGES_BUILD[@]}") ;;
        run) wanted+=("${PACKAGES_RUN[@]}") ;;
        package) wanted+=("${PACKAGES_PACKAGE[@]}") ;;
        tour) wanted+=("${PACKAGES_TOUR[@]}") ;;
        test) wanted+=("${PACKAGES_TEST[@]}") ;;
        gates) wanted+=("${PACKAGES_GATES[@]}") ;;
        fuzz) wanted+=("${PACKAGES_FUZZ[@]}") ;;
        faults) wanted+=("${PACKAGES_FAULTS[@]}") ;;
        bench) wanted+=("${PACKAGES_BENCH[@]}") ;;
        esac
    done
    if ! command -v dpkg-query >/dev/null; then
        echo "This system has no apt. Songrush needs what these Debian packages hold: ${wanted[*]}"
        return 0
    fi
    mapfile -t missing < <(missing_packages "${wanted[@]}")
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    as_root apt-get update -qq &&
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# build <preset>: configures and builds.
build() {
    cmake --preset "$1" >/dev/null && cmake --build --preset "$1"
}
