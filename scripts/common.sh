# shellcheck shell=sh disable=SC2034,SC2154
# Shared functions of ./run, ./check, ./package and other scripts. Sourced with $root set to the
# project's folder.

# Packages for a build, and for showing the program with or without a display. The last three are for
# listening to songs: the program builds and works without them.
build_packages="ca-certificates cmake g++ ninja-build \
    qt6-base-dev qt6-base-dev-tools qt6-5compat-dev qt6-svg-dev \
    libxxhash-dev libzstd-dev qt6-l10n-tools qt6-tools-dev qt6-tools-dev-tools qt6-translations-l10n \
    libqt6sql6-sqlite libgl-dev fonts-dejavu-core \
    qt6-multimedia-dev libfluidsynth-dev timgm6mb-soundfont"
run_packages="xvfb"
# The library of the benchmarks, and the peers.
bench_packages="libbenchmark-dev liblhasa-dev libtag1-dev pkg-config"
# Independent readers of songs that tests use for comparison, a message bus, and checkers of the desktop
# files.
check_packages="$bench_packages midicsv id3v2 python3-mutagen dbus-daemon \
    appstream desktop-file-utils libxml2-utils shared-mime-info"
lint_packages="clang-14 clang-format-14 clang-tidy-14 shellcheck"
fuzz_packages="clang-14 libclang-rt-14-dev"
# The kernel with FAT, the tools that make and repair file systems, and their checkers.
fat_packages="user-mode-linux dosfstools kmod python3"
# The tools that find the program's dependencies, and the package checker.
package_packages="dpkg-dev file lintian"

say() {
    printf '%s\n' "$*"
}

die() {
    printf '%s\n' "$*" >&2
    exit 1
}

# Prints the given packages that are not installed.
missing_packages() {
    for package in "$@"; do
        case $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) in
        installed) ;;
        *) printf '%s ' "$package" ;;
        esac
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "Root rights are needed for: $*"
    fi
}

# Installs the given packages that are missing; prints nothing if there are none.
install_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        die "There is no apt here. Please install what corresponds to these Debian packages:" "$@"
    fi
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    say "Installing: $missing"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q
    # shellcheck disable=SC2086 # a list of names
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends \
        -o Acquire::Retries=3 $missing
}

# build_preset <preset> <packages> [target...]: installs what is missing and builds the targets, or
# by default those of the preset (CMakePresets.json). Sets $build to the build folder.
build_preset() {
    preset=$1
    packages=$2
    shift 2
    build=$root/build/$preset
    # shellcheck disable=SC2086 # a list of names
    install_packages $packages
    configure "$preset"
    if [ $# -gt 0 ]; then
        set -- --target "$@"
    fi
    in_root cmake --build --preset "$preset" "$@"
}

# find_or_build_preset <preset> <packages> [target...]: the same, unless BRISEL_BUILD names a folder in
# which everything has been built.
find_or_build_preset() {
    if [ -n "${BRISEL_BUILD:-}" ]; then
        build=$BRISEL_BUILD
    else
        build_preset "$@"
    fi
}

# configure <preset>
configure() {
    in_root cmake --preset "$1" --log-level=WARNING >/dev/null
}

# Runs a command in the project's folder, where CMake finds its presets.
in_root() (
    cd "$root" || exit
    exec "$@"
)

# Makes programs put their temporary files on a RAM disk, unless TMPDIR is set.
use_ram_disk() {
    if [ -z "${TMPDIR:-}" ] && [ -w /dev/shm ]; then
        TMPDIR=/dev/shm
        export TMPDIR
    fi
}

has_display() {
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]
}
