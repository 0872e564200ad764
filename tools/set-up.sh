# What ./run, ./check and the continuous build share: the packages, the messages, the build.
# Sourced by bash with the current folder anywhere; leaves it at the root of the project.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
logs=$root/build/logs
mkdir -p "$logs"

# Everything that a fresh Debian 12 needs, by the names of its archive.
packages=(
    g++ cmake ninja-build                  # to build
    qt6-base-dev qt6-wayland               # the window
    libcli11-dev                           # the options of ternlow-run
    libgtest-dev libbenchmark-dev          # tests and benchmarks
    python3-markdown libqt6svg6            # the guide and its drawings
    fonts-liberation                       # the fonts that the panel is laid out for
    xvfb xauth x11-utils                   # a display where there is none
    clang-format python3                   # the checks of the sources
)

# What tools/check-package.sh needs besides.
package_check_packages=(
    dpkg-dev file binutils                 # to make the package
    lintian desktop-file-utils appstream   # to check it
    xdotool xclip                          # to work the installed program
)

say() { echo "ternlow: $*"; }

# step MESSAGE ADVICE COMMAND...: says what is being done, keeps the command's output in a log, and
# on failure shows the end of it and what to do.
step() {
    local message=$1 advice=$2
    shift 2
    local log
    log=$logs/$(echo "$message" | tr -c 'a-z0-9\n' '-' | cut -c1-40).log
    say "$message"
    if "$@" >"$log" 2>&1; then return 0; fi
    tail -n 25 "$log" >&2
    say "failed: $message. $advice (whole output: $log)" >&2
    exit 1
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Abbrev}' "$1" 2>/dev/null)" = "ii " ]
}

install_packages() {
    local missing=() package
    for package in "${packages[@]}"; do
        is_installed "$package" || missing+=("$package")
    done
    [ "${#missing[@]}" -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        say "these packages are missing: ${missing[*]}. Install them as root: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    local advice="Check the network and the Debian sources, then run this again."
    step "reading the package lists" "$advice" as_root apt-get update
    step "installing ${missing[*]}" "$advice" \
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
}

# build PRESET FOLDER
build() {
    if [ ! -f "$2/build.ninja" ]; then
        step "configuring $1" "Remove $2 and run this again." cmake --preset "$1"
    fi
    step "building $1 (the first time takes a few minutes)" "Mend the first error above." cmake --build "$2"
}
