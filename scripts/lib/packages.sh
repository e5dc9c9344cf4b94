# SPDX-License-Identifier: MIT
# Sourced by the scripts: which packages they need, and need_packages, which sees to it that they are there.

# What the program is built with.
BUILD_PACKAGES=(
    ca-certificates cmake g++ ninja-build pkg-config
    qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools libgl-dev
    libsystemd-dev libxcb1-dev libxcb-res0-dev libxcb-xfixes0-dev libxcb-xinput-dev libxcb-xkb-dev libxkbcommon-dev libxkbcommon-x11-dev
)
# What it talks to while it runs.
RUN_PACKAGES=(at-spi2-core dbus xkb-data fonts-dejavu-core)
# What shows it at work on a private display.
DEMO_PACKAGES=(
    xvfb openbox mousepad xdotool imagemagick x11-utils x11-xserver-utils x11-xkb-utils
    python3 python3-gi gir1.2-atspi-2.0 python3-xlib
)
# What makes the package for Debian and Ubuntu, and what looks at it.
PACKAGE_PACKAGES=(appstream desktop-file-utils dpkg-dev file gzip lintian mandoc)
# What the tests need besides: fixtures of every toolkit, applications, checkers.
TEST_PACKAGES=(
    libgtest-dev libgmock-dev libbenchmark-dev libgtk-3-dev libgtk-4-dev qtbase5-dev libxcb-damage0-dev libxcb-xtest0-dev
    featherpad gucharmap tint2 xfwm4 icewm xclip locales libglib2.0-bin gjs valgrind
    sway xwayland grim qt6-wayland
    clang-format clang-tidy ccache
    clang libc++-dev gnustep-make libgnustep-gui-dev gobjc
)

# What the fuzz targets are built with: clang with the runtime of its sanitizers, and what names the lines in their reports.
FUZZ_PACKAGES=(clang libclang-rt-dev llvm)

# The systems that scripts/in-root can make, and what each of them has: what builds the program there, runs its tests, and
# the desktops and toolkits of that time that they are about.
ROOT_SUITES=(trixie)
TRIXIE_PACKAGES=(
    "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${PACKAGE_PACKAGES[@]}" ccache
    libgtest-dev libgmock-dev libbenchmark-dev libgtk-3-dev libgtk-4-dev qtbase5-dev libxcb-damage0-dev libxcb-xtest0-dev
    xvfb openbox xdotool x11-utils x11-xkb-utils x11-xserver-utils xclip python3 python3-gi python3-xlib libglib2.0-bin valgrind locales
    liblayershellqtinterface-dev libwayland-dev wayland-protocols plasma-wayland-protocols qt6-wayland
    sway labwc xwayland wlr-randr kwin-wayland libkscreen-bin swaylock grim fcitx5 xdg-desktop-portal
    libreoffice-writer libreoffice-gtk3
    clang clang-tidy
)
# root_packages SUITE: what a system of that suite has, one a line
root_packages() {
    case "$1" in
        trixie) printf '%s\n' "${TRIXIE_PACKAGES[@]}" ;;
    esac
}

# On macOS they come from Homebrew. No list is empty: the bash there is too old for that.
if [ "$(uname -s)" = Darwin ]; then
    BUILD_PACKAGES=(bash cmake ninja pkgconf qt)
    RUN_PACKAGES=(qt)
    DEMO_PACKAGES=(python)
    PACKAGE_PACKAGES=(cmake)
    TEST_PACKAGES=(googletest google-benchmark clang-format)
    FUZZ_PACKAGES=(llvm)
fi

_need_brew_packages() {
    if ! command -v brew >/dev/null; then
        echo "This Mac has no Homebrew (https://brew.sh). Tarnwick needs what corresponds to these packages:" >&2
        printf '  %s\n' "$@" >&2
        echo "Going on with what is installed." >&2
        return 0
    fi
    local package
    for package in "$@"; do
        brew list --versions "$package" >/dev/null 2>&1 || brew install "$package"
    done
}

_missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || echo "$package"
    done
}

_as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# What apt knows of the archives, anew.
update_package_lists() { _as_root apt-get -q update; }

# need_packages NAME...: installs those that are missing with apt, on macOS with Homebrew; where there is neither, names
# them all and goes on.
need_packages() {
    if [ "$(uname -s)" = Darwin ]; then
        _need_brew_packages "$@"
        return
    fi
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        echo "This system has no apt. Tarnwick needs what corresponds to these Debian packages:" >&2
        printf '  %s\n' "$@" >&2
        echo "Going on with what is installed." >&2
        return 0
    fi
    local missing
    mapfile -t missing < <(_missing_packages "$@")
    [ ${#missing[@]} -eq 0 ] && return 0

    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        echo "These packages are missing, and there is no sudo to install them with. As root, run:" >&2
        echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    echo "Installing: ${missing[*]}"
    local log
    log=$(mktemp)
    if ! { update_package_lists &&
        _as_root env DEBIAN_FRONTEND=noninteractive apt-get -qy install --no-install-recommends \
            "${missing[@]}"; } >"$log" 2>&1 </dev/null; then
        tail -n 20 "$log" >&2
        echo "The packages above could not be installed. Install them by hand, then run the command again." >&2
        rm -f "$log"
        exit 1
    fi
    rm -f "$log"
}
