# shellcheck shell=sh disable=SC2034,SC2154
# What ./run, ./check, ./package and their kin share. Sourced with $root set to the project's folder.

# What a build needs, and what shows the program with or without a display.
build_packages="ca-certificates cmake g++ ninja-build \
    qt6-base-dev qt6-base-dev-tools qt6-5compat-dev qt6-svg-dev \
    qt6-l10n-tools qt6-tools-dev qt6-tools-dev-tools qt6-translations-l10n \
    libqt6sql6-sqlite libgl-dev fonts-dejavu-core"
run_packages="xvfb"
# The linters, independent readers of songs that the tests ask for a second opinion, and what judges
# the files for the desktop.
check_packages="clang-format-14 clang-tidy-14 midicsv id3v2 libtag1-dev \
    appstream desktop-file-utils libxml2-utils shared-mime-info shellcheck"
# What looks into the program for its dependencies, and what judges the package.
package_packages="dpkg-dev file lintian"

say() {
    printf '%s\n' "$*"
}

die() {
    printf '%s\n' "$*" >&2
    exit 1
}

# Prints those of the named packages that are not installed.
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

# Installs those of the named packages that are missing; silent and quick when there are none.
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

# configure <build folder> <cmake options...>
configure() {
    build=$1
    shift
    if command -v ccache >/dev/null; then
        set -- -DCMAKE_CXX_COMPILER_LAUNCHER=ccache "$@"
    fi
    cmake -S "$root" -B "$build" -G Ninja --log-level=WARNING "$@"
}

has_display() {
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]
}
