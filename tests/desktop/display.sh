# A display of a test's own, under Xvfb with a window manager, and what a person does there. Sourced by the scripts
# beside it; they work in a directory that is removed with the display when they end. Needs Xvfb, openbox, xdotool and
# ImageMagick.

place=$(mktemp -d)
cd "$place"
export INKSTONE_HOST=sdl
program_pid="" manager_pid="" display_pid=""
finish() {
    # shellcheck disable=SC2086
    kill $program_pid $manager_pid $display_pid 2>/dev/null || true
    cd / && rm -rf "$place"
}
trap finish EXIT

fail() { echo "FAILED: $1" >&2; exit 1; }
# soon WHAT COMMAND...: runs it until it succeeds. A busy machine may take its time: nothing here waits for a fixed one.
soon() {
    local what=$1 end=$((SECONDS + 60)); shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || fail "$what"
        sleep 0.1
    done
}

# open_display SIZE: of the screen, as 1024x768.
open_display() {
    exec 6> display
    Xvfb -displayfd 6 -screen 0 "$1x24" -nolisten tcp > xvfb.log 2>&1 &
    display_pid=$!
    soon "a display" [ -s display ]
    DISPLAY=:$(cat display)
    export DISPLAY
    openbox > openbox.log 2>&1 &
    manager_pid=$!
    soon "a window manager" manages
}
manages() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }

# opened TITLE: whether there is a window with that title, which is then $window. It may be made anew while it opens, so
# it is looked for before each use; one that vanishes while windows are counted is no failure.
opened() {
    window=$(xwininfo -root -tree 2>/dev/null | awk -v title="\"$1\":" '!n && index($0, title) { print $1; n = 1 }') || true
    [ -n "$window" ]
}
has_focus() {
    opened "$1" || return 1
    [ "$(timeout 10 xdotool getwindowfocus 2>/dev/null)" = "$((window))" ] && return
    timeout 5 xdotool windowactivate "$window" 2>/dev/null
    return 1
}
# Keys go to the window that has the focus: that of the title $title.
press() {
    soon "the window has the focus" has_focus "$title"
    timeout 10 xdotool key "$@"
}
# take FILE: what the window $title shows.
take() { opened "$title" && timeout 10 import -window "$window" "$1" 2>/dev/null; }
gone() { ! kill -0 "$program_pid" 2>/dev/null; }
