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

# Asks COMMAND over and over until it succeeds, which on a busy machine may take long.
patience=120  # seconds
wait_for() {
    local end=$((SECONDS + patience))
    until "$@"; do
        if [ $SECONDS -ge $end ]; then return 1; fi
        sleep 0.1
    done
}

# A window's id by its title, once it is there.
find_window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 | grep .; }
window() { wait_for find_window "$1" || fail "no window \"$1\" has appeared"; }
is_gone() { ! xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }

# Answers the prompt with that title, and waits until it has gone.
answer() {
    local id
    id=$(window "$1")
    xdotool windowfocus --sync "$id"
    wait_for type_whole "$2" || fail "the prompt \"$1\" does not take \"$2\""
    xdotool key Return
    wait_for is_gone "$1" || fail "the prompt \"$1\" stays"
}

# Types over what the field with the focus holds; true if it holds that then.
type_whole() {
    xdotool key ctrl+a type --delay 20 "$1"
    holds() { [ "$(selected)" = "$1" ]; }
    patience=5 wait_for holds "$1"
}

press() { xdotool windowfocus --sync "$panel" key --delay 50 "$@"; }
click() { xdotool mousemove --window "$panel" "$1" "$2" click 1; }

# The text of the field with the focus: selected, it is the selection of the display. What is at its
# end when the keys are pressed is behind the former selection, which is taken away first.
selected() {
    xclip -i -selection primary /dev/null
    xdotool key --delay 50 End ctrl+a
    shown=
    read_selection() { shown=$(xclip -o -selection primary 2>/dev/null) && [ -n "$shown" ]; }
    patience=5 wait_for read_selection || true
    echo "$shown"
}

# What the box at a place shows.
box() {
    xdotool windowfocus --sync "$panel"
    click "$1" "$2"
    selected
}
time_box=(490 632)
state_box=(490 147)
scheme_button=(496 724)

# Begins the run and waits until the box of the time shows the given time or the next plot after it.
# A key that comes before the window has taken the focus is lost; at time 0 another does no harm.
has_reached() {
    reached=$(box "${time_box[@]}")
    if [ "$reached" = "t=0.0" ]; then press F5; fi
    awk -v shown="${reached#t=}" -v end="$1" 'BEGIN { exit !(shown >= end && shown < 1.1 * end) }'
}
run_to() {
    wait_for has_reached "$1" || fail "the run has not ended at $1 but at \"$reached\""
    echo "    ran to $reached, stored state $(box "${state_box[@]}")"
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
