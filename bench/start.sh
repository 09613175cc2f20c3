#!/bin/sh
# start.sh BIN [RUNS]: starts the program in BIN, on its data/Tarnwell.mdb and a virtual display, RUNS times, and prints
# for each run the milliseconds from its start to its visible main window (polled, so up to 10 too many) and, with Time
# Card open, the peak of its memory in megabytes.
set -eu
bin=$(cd "$1" && pwd)
runs=${2:-10}
[ -e "$bin/data/Tarnwell.mdb" ] || { echo "$bin/data holds no database" >&2; exit 1; }
work=$(mktemp -d)
display= manager= program=
trap 'kill $program $manager $display 2>/dev/null || true; rm -rf "$work"' EXIT

mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 1280x800x24 3>"$work/number" 2>/dev/null &
display=$!
read -r number <"$work/number"
export DISPLAY=":$number" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work"
openbox >/dev/null 2>&1 &
manager=$!

milliseconds() { echo $(($(date +%s%N) / 1000000)); }
visible() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }

# The first run writes the settings and warms the disk's cache; it is not counted.
for run in $(seq 0 "$runs"); do
    begun=$(milliseconds)
    "$bin/tarnwell" 2>/dev/null &
    program=$!
    until visible '^Tarnwell: Version'; do :; done
    shown=$(milliseconds)
    until visible '^Timecards$'; do
        xdotool key alt+c
        sleep 1
    done
    peak=$(awk '/VmHWM/ { printf "%.0f", $2 / 1024 }' "/proc/$program/status")
    [ "$run" -eq 0 ] || echo "run $run: $((shown - begun)) ms to the main window, $peak MB at the peak"
    kill "$program"
    wait "$program" 2>/dev/null || true
done
