#!/usr/bin/env bash
# ink view on a display: the window shows the picture that --png writes, enlarged; keys turn pages and colours and stop
# an animation; Esc ends it, however short the stroke. Usage: view.sh BUILD_DIR. Needs what run.sh beside it needs.
set -euo pipefail
ink=$(realpath "$1/tools/ink/ink")
fonts=$(realpath "$1/demo/content")
. "$(dirname "$0")/display.sh"
open_display 1024x768

# view FILE [OPTION...]: opens it and waits for its window.
view() {
    "$ink" view "$@" &
    program_pid=$!
    title=$1
    soon "$1 opens a window" opened "$title"
}
# The window is filled by the picture NAME.png, each pixel two or more wide and high; one of 640 columns may stand as it is.
is_shown() {
    local times
    take shown.png || return 1
    times=$(($(identify -format %w shown.png) / $(identify -format %w "$1.png")))
    [ "$times" -ge 2 ] || [ "$(identify -format %w "$1.png")" = 640 ] || fail "$1 is enlarged"
    convert "$1.png" -sample "$((times * 100))%" wanted.png
    [ "$(compare -metric AE wanted.png shown.png null: 2>&1)" = 0 ]
}
shows() {
    soon "$1 is shown" is_shown "$1"
    echo "ok: $1 is shown"
}
# ends HOW KEY
ends() {
    local code=0
    press "$2"
    soon "$1" gone
    wait "$program_pid" || code=$?
    [ "$code" = 0 ] || fail "$1, with exit code $code"
    echo "ok: $1"
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
    ends "Esc ends it" Escape
done

# A film of a frame a minute: it stands where keys lead it.
for frame in 1 2 3; do "$ink" view walk.flc --frame $frame --png "walk$frame.png"; done
view walk.flc
shows walk1
press Right
shows walk2
press Left Left
shows walk3
ends "Esc ends it" Escape

# An animation runs by itself until Space stops it.
for frame in 1 2 3; do "$ink" view walk.can --palette wide.pal --frame $frame --png "walk$frame.png"; done
view walk.can --palette wide.pal
shows walk3
shows walk2
press space
# Its frames change twelve times a second.
stands() {
    take first.png && sleep 0.3 && take second.png && sleep 0.25 && take third.png || return 1
    cmp -s <(convert first.png rgb:-) <(convert second.png rgb:-) && cmp -s <(convert second.png rgb:-) <(convert third.png rgb:-)
}
soon "Space stops the animation" stands
ends "Esc ends it" Escape

# Pages wait for a key.
for page in 1 2; do "$ink" view CHINE16.FON --frame $page --png "page$page.png"; done
view CHINE16.FON
shows page1
sleep 1.5
shows page1
press Right
shows page2
ends "Esc ends it" Escape

# All colours but that of entry 0 move on. Closing the window ends it, too.
"$ink" view wide.pal --png swatch.png
view wide.pal
shows swatch
press c
colour() { convert "$1.png" -format "%[pixel:p{$2,8}]" info:; }
turns() { take turned.png && [ "$(colour turned 24)" != "$(colour swatch 24)" ]; }
soon "C turns the palette round" turns
[ "$(colour turned 8)" = "$(colour swatch 8)" ] || fail "entry 0 keeps its colour"
ends "closing the window ends it" alt+F4

DISPLAY="" INKSTONE_HOST="" "$ink" view wide.pcx 2>err && fail "no display, no window"
grep -q "wide.pcx.*--png" err || fail "no display: $(cat err)"
echo "ink view holds"
