#!/usr/bin/env bash
# The desktop machine under Xvfb: what its window shows, keys, pointer, resizing, full screen, closing, the fatal
# exit's box. Usage: run.sh PROBE. Needs Xvfb, openbox, xdotool and ImageMagick.
set -euo pipefail

probe=$(realpath "$1")
. "$(dirname "$0")/display.sh"
passed=0
failed=0

ok() { passed=$((passed + 1)); echo "ok: $1"; }
not_ok() { failed=$((failed + 1)); echo "FAILED: $1"; }
# expect TEXT LINE...: all the lines stand in the probe's output, in this order, within some seconds.
expect() {
    local text=$1 try; shift
    printf '%s\n' "$@" > wanted
    for try in $(seq 50); do
        # Every wanted line, in order, somewhere in what was printed since the last mark.
        if tail -n +$((mark + 1)) output | awk 'NR == FNR { want[NR] = $0; n = NR; next }
               i < n && $0 == want[i + 1] { i++ } END { exit i < n }' wanted -; then
            ok "$text"; return
        fi
        sleep 0.1
    done
    not_ok "$text"; echo "wanted:"; cat wanted; echo "got:"; tail -n +$((mark + 1)) output
}
start_mark() { mark=$(wc -l < output); }
# find_window TITLE: the number of the window with that title, once it is there.
find_window() {
    soon "a window with the title $1" opened "$1"
    echo "$window"
}
same_picture() {
    local different
    different=$(compare -metric AE "$1" "$2" difference.png 2>&1 || true)
    [ "$different" = 0 ] && ok "$3" || not_ok "$3 ($different pixels differ)"
}
open_display 1440x1100

mark=0
: > output
"$probe" >> output 2>&1 &
program_pid=$!
expect "the desktop machine is chosen" "host sdl"
window=$(find_window "Inkstone probe")
xdotool windowactivate --sync "$window"
xdotool windowsize --sync "$window" 640 480
sleep 0.5

import -window "$window" shown.png
same_picture shown.png card.ppm "the window shows the picture that the machine holds"

start_mark
xdotool key a; xdotool key Up; xdotool keydown shift key F12 keyup shift
expect "keys arrive as set-1 scan codes" "down 01e" "up 01e" "down 148" "up 148" "down 02a" "down 058" "up 058" \
    "up 02a"

# scale LABEL WIDTH HEIGHT X Y: at that window size the window position (X, Y) is the client position (100, 200).
scale() {
    xdotool windowsize --sync "$window" "$2" "$3"; sleep 0.5
    xdotool mousemove --window "$window" 3 3; sleep 0.2
    start_mark
    xdotool mousemove --window "$window" "$4" "$5" click 1 click 3
    expect "the pointer at $1" "move 100 200" "button 201 1 100 200" "button 202 0 100 200" \
        "button 204 2 100 200" "button 205 0 100 200"
}
scale "scale 1" 640 480 100 200
scale "scale 2" 1280 960 201 401
# One and a half times the size leaves room for whole pixels only once: bars of 160 and 120 around the picture.
scale "scale 1.5, with bars" 960 720 260 320
import -window "$window" resized.png
convert resized.png -crop 640x480+160+120 +repage resized-crop.png
same_picture resized-crop.png card.ppm "the enlarged window shows the picture in its middle"
xdotool mousemove --window "$window" 500 400; sleep 0.2
start_mark
xdotool mousemove --window "$window" 2 2
expect "a position in the bars is the nearest pixel" "move 0 0"

xdotool windowsize --sync "$window" 640 480
start_mark
xdotool key alt+Return; sleep 1
xdotool getwindowgeometry "$window" | grep -q "1440x1100" && ok "Alt+Enter fills the screen" ||
    not_ok "Alt+Enter fills the screen: $(xdotool getwindowgeometry "$window")"
xdotool key alt+Return; sleep 1
xdotool getwindowgeometry "$window" | grep -q "640x480" && ok "Alt+Enter again gives the window back" ||
    not_ok "Alt+Enter again gives the window back: $(xdotool getwindowgeometry "$window")"
tail -n +$((mark + 1)) output | grep -q 01c && not_ok "the game sees nothing of Enter" ||
    ok "the game sees nothing of Enter"

start_mark
xdotool key alt+F4  # the window manager closes it
expect "closing the window puts the palette back" "close" "palette restored"
wait "$program_pid" && ok "the program ends with exit code 0" || not_ok "the program ends with exit code $?"

start_mark
INKSTONE_RECORD=$place/play.rec "$probe" >> output 2>&1 &
program_pid=$!
expect "a play is recorded" "host sdl"
window=$(find_window "Inkstone probe")
xdotool windowactivate --sync "$window"
xdotool mousemove --window "$window" 100 200 click 1 mousemove --window "$window" 300 120 click 3; sleep 0.3
xdotool key a Up; sleep 1.2; xdotool keydown shift key F12 keyup shift; sleep 0.3
xdotool key alt+F4
wait "$program_pid" || not_ok "the recorded program ends with exit code $?"
tail -n +$((mark + 1)) output > played
grep -q "^button 201" played && grep -q "^down 058" played || not_ok "keys and clicks are in the play: $(cat played)"
# replays MACHINE TEXT: the program hears and shows there what it did when it was played.
replays() {
    INKSTONE_HOST=$1 INKSTONE_REPLAY=$place/play.rec timeout 60 "$probe" > replayed 2> verdict || true
    cmp -s played replayed && grep -q "seconds, equal" verdict && ok "$2" ||
        not_ok "$2: $(cat verdict; diff played replayed)"
}
replays headless "the play runs again without a display"
replays sdl "and in a window at its pace"

start_mark
mkfifo loaded
"$probe" loading < loaded >> output 2>&1 &
program_pid=$!
exec 7> loaded
expect "another one loads for a while" "host sdl"
window=$(find_window "Inkstone probe")
sleep 0.5
import -window "$window" loading.png
convert loading.png -filter point -resize 640x480 loading-same.png
same_picture loading-same.png card.ppm "a palette and a picture show though nobody pumps"
echo > loaded
wait "$program_pid" || true

start_mark
"$probe" fatal >> output 2>&1 &
program_pid=$!
box=$(find_window "SystemError")
[ -n "$box" ] && ok "a fatal exit shows a box" || not_ok "a fatal exit shows a box"
sleep 0.5
xdotool windowfocus "$box" key Return
code=0; wait "$program_pid" || code=$?
expect "the quit procedures run after it" "quit procedure"
[ "$code" = 1 ] && ok "and the program ends with exit code 1" || not_ok "exit code $code instead of 1"

start_mark
SDL_AUDIODRIVER=dummy "$probe" disc >> output 2>&1
expect "a disc is heard without a gap while it is read ahead" "disc whole"

echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
