#!/usr/bin/env bash
# ink view on a display: the window shows the picture that --png writes, enlarged; keys turn pages and colours and stop
# an animation; Esc ends it, however short the stroke. Usage: view.sh BUILD_DIR. Needs what run.sh beside it needs.
set -euo pipefail
ink=$(realpath "$1/tools/ink/ink")
fonts=$(realpath "$1/demo/content")
place=$(mktemp -d)
cd "$place"
export INKSTONE_HOST=sdl
finish() {
    kill "${view_pid:-}" "${manager_pid:-}" "${display_pid:-}" 2>/dev/null || true
    cd / && rm -rf "$place"
}
trap finish EXIT

exec 6> display
Xvfb -displayfd 6 -screen 0 1024x768x24 -nolisten tcp > xvfb.log 2>&1 &
display_pid=$!
for try in $(seq 50); do [ -s display ] && break; sleep 0.1; done
export DISPLAY=:$(cat display)
openbox > openbox.log 2>&1 &
manager_pid=$!
sleep 1

fail() { echo "FAILED: $1"; exit 1; }
# view FILE [OPTION...]: opens it and waits for its window.
view() {
    local try
    "$ink" view "$@" &
    view_pid=$!
    window=""
    for try in $(seq 100); do
        # Windows that vanish while they are counted are no failure.
        window=$(xwininfo -root -tree 2>/dev/null | awk -v title="\"$1\":" '!n && index($0, title) { print $1; n = 1 }') || true
        [ -n "$window" ] && break
        sleep 0.1
    done
    [ -n "$window" ] || fail "$1 opens a window"
    # The window manager may still be at work on it.
    xdotool windowactivate --sync "$window" 2>/dev/null || xdotool windowactivate --sync "$window"
}
# shows NAME: within some seconds the window is filled by the picture NAME.png, each pixel two or more wide and high; one
# of 640 columns may stand as it is.
shows() {
    local try times
    for try in $(seq 50); do
        import -window "$window" shown.png 2>/dev/null || { sleep 0.1; continue; }
        times=$(($(identify -format %w shown.png) / $(identify -format %w "$1.png")))
        [ "$times" -ge 2 ] || [ "$(identify -format %w "$1.png")" = 640 ] || fail "$1 is enlarged"
        convert "$1.png" -sample "$((times * 100))%" wanted.png
        if [ "$(compare -metric AE wanted.png shown.png null: 2>&1)" = 0 ]; then echo "ok: $1 is shown"; return; fi
        sleep 0.1
    done
    fail "$1 is shown"
}
ends() {
    local code=0
    xdotool key Escape
    timeout 5 tail --pid="$view_pid" -f /dev/null || fail "Esc ends it"
    wait "$view_pid" || code=$?
    [ "$code" = 0 ] || fail "Esc ends it with exit code $code"
    echo "ok: Esc ends it"
}

for i in 0 1 2; do
    convert -seed 7 -size 63x41 plasma:tomato-blue -colors 60 -fill white \
        -draw "rectangle $((9 * i)),5 $((9 * i + 8)),30" "PNG8:f$i.png"
done
convert -seed 7 -size 320x200 plasma: -colors 200 PNG8:wide.png
"$ink" palette convert wide.png -o wide.pal
"$ink" picture wide.png -o wide.img
"$ink" picture wide.png -o wide.pcx
"$ink" can build walk.can f0.png f1.png f2.png --palette wide.pal --recolour >/dev/null
"$ink" flic build walk.flc f0.png f1.png f2.png --speed 60000 >/dev/null
cp "$fonts/CHINE16.FON" .

for file in wide.img wide.pcx; do
    "$ink" view "$file" --palette wide.pal --png "$file.png"
    view "$file" --palette wide.pal
    shows "$file"
    ends
done

# A film of a frame a minute: it stands where keys lead it.
for frame in 1 2 3; do "$ink" view walk.flc --frame $frame --png "walk$frame.png"; done
view walk.flc
shows walk1
xdotool key Right
shows walk2
xdotool key Left Left
shows walk3
ends

# An animation runs by itself until Space stops it.
for frame in 1 2 3; do "$ink" view walk.can --palette wide.pal --frame $frame --png "walk$frame.png"; done
view walk.can --palette wide.pal
shows walk3
shows walk2
xdotool key space
sleep 0.3
import -window "$window" first.png
sleep 0.3
import -window "$window" second.png
cmp <(convert first.png rgb:-) <(convert second.png rgb:-) || fail "Space stops the animation"
ends

# Pages wait for a key.
for page in 1 2; do "$ink" view CHINE16.FON --frame $page --png "page$page.png"; done
view CHINE16.FON
shows page1
sleep 1.5
shows page1
xdotool key Right
shows page2
ends

# All colours but that of entry 0 move on. Closing the window ends it, too.
"$ink" view wide.pal --png swatch.png
view wide.pal
shows swatch
xdotool key c
sleep 0.5
import -window "$window" turned.png
colour() { convert "$1.png" -format "%[pixel:p{$2,8}]" info:; }
[ "$(colour turned 8)" = "$(colour swatch 8)" ] || fail "entry 0 keeps its colour"
[ "$(colour turned 24)" != "$(colour swatch 24)" ] || fail "C turns the palette round"
xdotool key alt+F4
wait "$view_pid" || fail "closing the window ends it"

DISPLAY="" INKSTONE_HOST=headless "$ink" view wide.pcx 2>err && fail "no display, no window"
grep -q "wide.pcx.*--png" err || fail "no display: $(cat err)"
echo "ink view holds"
