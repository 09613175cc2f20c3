# Sourced by package-life.sh: a desktop that nobody sees, and the keys of somebody who works at it.

# start_desktop FOLDER ROOT: an X server and a window manager; programs in ROOT reach it as well.
start_desktop() {
    screen=$1/Xvfb_screen0
    mkdir -p "$1" "$2/tmp/.X11-unix"
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -ac -fbdir "$1" 3>"$1/display" 2>"$1/xvfb.log" &
    wait_until "start of the X server" test -s "$1/display"
    DISPLAY=:$(cat "$1/display")
    export DISPLAY
    mount --bind /tmp/.X11-unix "$2/tmp/.X11-unix"
    openbox >"$1/openbox.log" 2>&1 &
}

# wait_until WHAT COMMAND...: a minute for the command to succeed. In vain, it leaves a picture of the screen that
# ImageMagick can read.
wait_until() {
    what=$1
    shift
    tries=0
    until "$@" >/dev/null 2>&1; do
        tries=$((tries + 1))
        [ "$tries" -lt 300 ] || { cp "$screen" build/screen.xwd || true; fail "$what: not in time; see build/screen.xwd"; }
        sleep 0.2
    done
}

# window TITLE: waits for the window, whose title matches this pattern, and works in it.
window() {
    wait_until "window \"$1\"" xdotool search --onlyvisible --name "$1"
    xdotool search --onlyvisible --name "$1" windowactivate
}

# Until no such window is left: what is typed next is for another one.
window_closed() {
    wait_until "closed window \"$1\"" sh -c '! xdotool search --onlyvisible --name "$1" >/dev/null 2>&1' - "$1"
}

keys() { xdotool key --clearmodifiers --delay 60 "$@"; }
