#!/usr/bin/env bash
# Works the program on the display as a user does, by keys and clicks, and reads what its boxes show:
# Test 1 with each scheme asked for, then a set-up file.
#     tools/play-installed.sh PROGRAM LIBRARIES SETUP SCHEME...
# Each scheme must come out of the folder LIBRARIES or one below it. Needs a display without a window
# manager on which the panel has its full size, 1000 x 766 pixels and a frame.
set -euo pipefail
program=$1 libraries=$2 setup=$3
shift 3

fail() { echo "$*" >&2; exit 1; }

# A window's id by its title, once it is there.
window() {
    local id
    for _ in $(seq 100); do
        id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) || true
        if [ -n "$id" ]; then echo "$id"; return; fi
        sleep 0.1
    done
    fail "no window \"$1\" has appeared"
}

# Answers the prompt with that title, and waits until it has gone.
answer() {
    local id
    id=$(window "$1")
    xdotool windowfocus --sync "$id" key --window 0 ctrl+a type --delay 20 "$2"
    xdotool key Return
    for _ in $(seq 100); do
        xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
        sleep 0.1
    done
    fail "the prompt \"$1\" stays"
}

press() { xdotool windowfocus --sync "$panel" key --delay 50 "$@"; }
click() { xdotool mousemove --window "$panel" "$1" "$2" click 1; }

# What the box at a place shows: its text, selected, is the selection of the display.
box() {
    click "$1" "$2"
    press ctrl+a
    sleep 0.2
    xclip -o -selection primary 2>/dev/null || true
}
time_box=(490 632)
state_box=(490 147)
scheme_button=(496 724)

# Begins the run and waits until the box of the time stands still, which must be at the given time or
# the next plot after it.
run_to() {
    local shown= before
    press F5
    for _ in $(seq 100); do
        before=$shown
        sleep 0.3
        shown=$(box "${time_box[@]}")
        [ "$shown" != "$before" ] || break
    done
    awk -v shown="${shown#t=}" -v end="$1" 'BEGIN { exit !(shown >= end && shown < 1.1 * end) }' ||
        fail "the run has not ended at $1 but at \"$shown\""
    echo "    ran to $shown, stored state $(box "${state_box[@]}")"
}

(cd / && exec "$program") &
ternlow=$!
trap 'kill $ternlow 2>/dev/null' EXIT
answer "Get Student Name" "A. Teacher"
panel=$(window "Gas Dynamics Experiment")

for scheme in "$@"; do
    echo "Test 1 with $scheme"
    press ctrl+F5 ctrl+1
    click "${scheme_button[@]}"
    answer "Specify Scheme" "$scheme"
    answer "Type 1 for Mflop/s metering" 0
    run_to 0.2
    file=lib${scheme/%Kestrel/Kestrel64}.so
    grep -o "$libraries/.*$file" "/proc/$ternlow/maps" | sort -u | sed 's/^/    with /' | grep . ||
        fail "$file was not taken from $libraries"
done

echo "set-up file $setup"
press ctrl+F5 ctrl+o
answer "Open" "$setup"
run_to 0.038
kill -0 "$ternlow" || fail "the program has ended by itself"
