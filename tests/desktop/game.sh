#!/usr/bin/env bash
# A play of the game on a display, with keys and clicks as a person gives them, recorded there: a saved game is loaded,
# the moon painted, saved, a new game begun, a name typed, the opening left, somebody talked to, another place walked to,
# and the saved game loaded again. The record is then run from without a display and once more in a window; pictures,
# sounds and all saved files must be the same. Usage: game.sh BUILD_DIR. Needs what display.sh beside it needs, and Perl.
set -euo pipefail
build=$(realpath "$1")
. "$(dirname "$0")/display.sh"
demo=$build/demo/demo
content=$build/demo/content
title="The Moon in the Ink"
open_display 1024x768

# A saved game in which all that is needed for the painting has been found, out of one that a scripted play saved: a
# saved state has 92 bytes before its variables of 4, which demo/state.h names.
env -u DISPLAY INKSTONE_HOST=headless "$demo" --tour --scripted --half 1 --pictures half > half.log
perl -0777 -pe 'my %to = (0, 0, 2, 330, 3, 392, 11, 1, 15, 1, 16, 1, 17, 1);
    substr($_, 92 + 4 * $_[0], 4) = pack("V", $to{$_[0]}) while @_ = (each %to)[0], defined $_[0]' \
    half/play/GAME.SAV > ready.sav
mkdir play
cp ready.sav play/GAME.SAV
cp -r play copy

# What the game waits for is told by the gold of its frames, which has the same entry of the palette in every scene. In a
# fade it is darker, so what is seen is there to stay.
gold=$(perl -0777 -ne 'print join " ", map { $_ * 4 } unpack "C3", substr $_, 8 * 3, 3' "$content/day.pal")
bright_gold=$(perl -0777 -ne 'print join " ", map { $_ * 4 } unpack "C3", substr $_, 14 * 3, 3' "$content/day.pal")
# colour X Y: of a pixel of the window, as three numbers.
colour() { od -An -tu1 -j $((($2 * 640 + $1) * 3)) -N 3 shown.rgb | tr -s ' ' | sed 's/^ //'; }
look() { take shown.png && [ "$(identify -format %wx%h shown.png)" = 640x480 ] && convert shown.png -depth 8 rgb:shown.rgb; }
# has COLOUR X Y...: whether each of these pixels has that colour.
has() {
    local wanted=$1; shift
    look || return 1
    while [ $# -gt 0 ]; do
        [ "$(colour "$1" "$2")" = "$wanted" ] || return 1
        shift 2
    done
}
at_title() { has "$gold" 63 239 257 300; }        # the frame of its menu
at_name() { has "$gold" 133 229 507 300; }        # that of the name
is_told() { has "$gold" 620 369 620 468; }        # that of the panel at the bottom
has_found() { has "$gold" 203 147 437 269; }      # that of a thing that is found
in_menu() { has "$gold" 223 85 433 300; }
paints() { has "$bright_gold" 494 298 616 343; }  # the last button is framed
is_quiet() { look && [ "$(colour 620 369)" != "$gold" ] && [ "$(colour 320 147)" != "$gold" ]; }
# There is a beam of the study where other places have their sky.
beam=$(convert "$content/study.pcx" -crop 1x1+330+30 -depth 8 rgb:- | od -An -tu1 | tr -s ' ' | sed 's/^ //')
in_study() { is_quiet && [ "$(colour 330 30)" = "$beam" ]; }

point() { soon "the window has the focus" has_focus "$title"; timeout 10 xdotool mousemove --window "$window" "$1" "$2"; }
click() { point "$1" "$2"; xdotool click 1; }
# drag X Y X Y: with the hand down for some frames, as the game draws while it is held.
drag() {
    point "$1" "$2"; xdotool mousedown 1; sleep 0.1
    point "$(((4 * $3 + $1) / 5))" "$(((4 * $4 + $2) / 5))"; sleep 0.1
    point "$3" "$4"; sleep 0.1
    xdotool mouseup 1; sleep 0.1
}
# A key goes down and up within some frames, or the game would not see it.
type_key() { press --delay 60 "$@"; }
# until_so WHAT CONDITION COMMAND...: does that over and over until it is so.
until_so() {
    local what=$1 condition=$2; shift 2
    once_more() { "$condition" || { "$@"; sleep 0.2; "$condition"; }; }
    soon "$what" once_more "$@"
}
ok() { echo "ok: $1"; }

INKSTONE_RECORD=$place/play.rec "$demo" --folder play &
program_pid=$!
soon "the game opens its window" opened "$title"
xdotool windowsize --sync "$window" 640 480
soon "the title page" at_title
click 160 310 # go on
soon "the saved game" in_study
click 300 236
soon "the desk is reached" is_told
until_so "the sheet to paint on" paints type_key space
click 603 98                    # gold
click 54 170                    # a circle
drag 320 216 400 216
click 114 170                   # filled
click 340 236
click 555 320
soon "the painting is found" has_found
until_so "all is said" is_quiet type_key space
type_key F5
ok "the moon is painted, and the game saved"

type_key Escape
soon "the menu" in_menu
click 320 356                   # back to the title
soon "the title page again" at_title
click 160 270                   # a new game
soon "the name is asked for" at_name
type_key M e i
sleep 0.2
type_key Return
until_so "the opening is left" is_told type_key space
until_so "the story begins" is_quiet type_key space
click 478 320
soon "the master is spoken to" is_told
until_so "he has told all" is_quiet type_key space
click 628 400
soon "the market is reached" is_told
until_so "and it is quiet there" is_quiet type_key space
ok "a name is typed, and a new game begun"
type_key F9
soon "the saved game is back" in_study
ok "the saved game is loaded"
sleep 1
press alt+F4
code=0; wait "$program_pid" || code=$?
[ "$code" = 0 ] || fail "the game ends with exit code $code"
cmp -s play/GAME.SAV ready.sav && fail "nothing was saved"

# replays MACHINE TEXT: as it was played, and with the same files at the end.
replays() {
    rm -rf again
    cp -r copy again
    INKSTONE_HOST=$1 INKSTONE_REPLAY=$place/play.rec timeout 120 "$demo" --folder again > replay.log 2> verdict ||
        fail "$2: $(cat verdict)"
    grep "seconds, equal" verdict || fail "$2: $(cat verdict)"
    for file in GAME.SAV MOON.PCX; do cmp "play/$file" "again/$file" || fail "$2: $file"; done
    ok "$2"
}
replays headless "the play runs again without a display"
replays sdl "and in a window at its pace"
