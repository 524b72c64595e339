#!/usr/bin/env bash
# What is built for Windows, under Wine: all tests on the simulated machine, then programs on Windows' own machine, on a
# display, with a sound device that keeps what was played: what the window shows, keys and mouse, covering, sound, disc,
# the fatal exit's box, closing. Usage: run.sh BUILD NATIVE, the builds for Windows and for this machine. Needs Wine,
# Xvfb, openbox, xdotool, ImageMagick, ALSA, Clang and LLD. WINE names another Wine, for a build that this one does not
# run.
set -euo pipefail

here=$(dirname "$(realpath "$0")")
build=$(realpath "$1")
native=$(realpath "$2")
wine=${WINE:-wine}
place=$(mktemp -d)
cd "$place"
passed=0
failed=0
ok() { passed=$((passed + 1)); echo "ok: $1"; }
not_ok() { failed=$((failed + 1)); echo "FAILED: $1"; }
# same TEXT WANTED GOT: two files with the same lines.
same() {
    if diff -u "$2" "$3" > difference; then ok "$1"; else not_ok "$1"; cat difference; fi
}
# same_picture EXPECTED TEXT: what the window shows, within some seconds.
same_picture() {
    local try different
    for try in $(seq 80); do
        import -window "$window" shown.png
        different=$(compare -metric AE "$1" shown.png difference.png 2>&1 || true)
        [ "$different" = 0 ] && { ok "$2"; return; }
        sleep 0.2
    done
    not_ok "$2 ($different pixels differ)"
    [ -z "${KEEP_PICTURES:-}" ] || cp shown.png "$KEEP_PICTURES/${2// /-}.png"
}
# find_window TITLE: the number of the window with that title, once it is there.
find_window() {
    local try number=""
    for try in $(seq 300); do
        number=$(xwininfo -root -tree | awk -v title="\"$1\":" 'index($0, title) { print $1; exit }')
        [ -n "$number" ] && break
        sleep 0.1
    done
    echo "$number"
}
finish() {
    "$wine" wineboot -k > wineboot.log 2>&1 || true
    [ -z "${manager_pid:-}" ] || kill "$manager_pid" 2>/dev/null || true
    [ -z "${display_pid:-}" ] || kill "$display_pid" 2>/dev/null || true
    cd /
    # What Wine leaves running for a moment still writes there.
    local try
    for try in $(seq 50); do rm -rf "$place" 2>/dev/null && break; sleep 0.1; done
}
trap finish EXIT

# A Wine, a display and a sound device of this test's own.
export WINEPREFIX=$place/prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
export WINEPATH="Z:${build//\//\\}\\bin"
cat > asound.conf << END
pcm.!default { type plug slave { pcm filed format S16_LE rate 48000 channels 2 } }
pcm.filed { type file slave.pcm null file "$place/played.raw" format raw }
pcm.null { type null }
ctl.!default { type hw card 0 }
END
export ALSA_CONFIG_PATH=$place/asound.conf
exec 6> display
Xvfb -displayfd 6 -screen 0 1024x768x24 -nolisten tcp > xvfb.log 2>&1 &
display_pid=$!
for try in $(seq 50); do [ -s display ] && break; sleep 0.1; done
DISPLAY=:$(cat display)
export DISPLAY
openbox > openbox.log 2>&1 &
manager_pid=$!
"$wine" wineboot -i > wineboot.log 2>&1

# ---- All tests, on the simulated machine ----

if [ -z "${SKIP_TESTS:-}" ]; then
    code=0
    (cd "$build" && "$wine" "$build/bin/inkstone_tests.exe" --gtest_brief=1) > tests.log 2>&1 || code=$?
    [ "$code" = 0 ] && ok "all tests: $(grep -a PASSED tests.log | tr -d '\r')" ||
        { not_ok "tests end with exit code $code"; tail -n 60 tests.log; }
fi

# ---- A program of another compiler ----

# As Visual C++ makes one: the import library out of the list of functions, nothing of MinGW in it.
export_list=$build/lib/inkstone.def
case $(basename "$build") in *32*) processor=i686 library=i386 ;; *) processor=x86_64 library=i386:x86-64 ;; esac
visual_c() {
    clang-14 --target=$processor-pc-windows-msvc -O1 -ffreestanding -Wall -Wextra -Werror -isystem "$here/visual_c" \
        -I "$here/../../include" -c "$here/visual_c/program.c" -o program.obj &&
        llvm-dlltool-14 -m $library -D inkstone.dll -d "$export_list" -l inkstone.lib &&
        lld-link-14 /entry:start /subsystem:console /nodefaultlib /out:program.exe program.obj inkstone.lib &&
        "$wine" program.exe
}
code=0; visual_c || code=$?
[ "$code" = 0 ] && ok "a program as Visual C++ makes it" || not_ok "a program as Visual C++ makes it: $code"

# ---- What the machine is asked for, and in which order ----

probe() { "$wine" "$build/bin/windows_probe.exe" "$@" | tr -d '\r'; }

{
    present() { printf '%s\n' "get_context W" "select_palette P" realize_palette "copy_bitmap C $1" "release_context W"; }
    printf '%s\n' "host win32" "create_palette 256" "get_context W" "select_palette P" realize_palette "release_context W"
    present "3 4 64 48 64"
    present "8 10 7 8 8"
    printf '%s\n' "animate_palette P 0 256" "animate_palette P 5 1" "animate_palette P 16 16" timers
    printf 'set_timer W %d 5\n' $(seq 16)
    echo quit
    printf 'kill_timer W %d\n' $(seq 16)
    printf '%s\n' "get_context W" "select_palette S" realize_palette "release_context W" "delete_palette P"
} > wanted
probe calls > got
same "the operations of view and timers in their order" wanted got

printf '%s\n' "host win32" "ticks 1 1 1 1" "ticks 1 1 1 1" > wanted
probe ticks > got
same "window timers drive the counters, with a window and without one" wanted got

printf '%s\n' "host win32" "shown 1" "lost 0" "back 1" "changed 1" gone > wanted
probe picture > got
same "what was lost of a picture is shown again, with the colours of now" wanted got

printf '%s\n' "host win32" "big5 -2" > wanted
probe big5 > got
same "a system that is not Chinese" wanted got
"$wine" reg add 'HKLM\System\CurrentControlSet\Control\FontAssoc\Associated CharSet' /v 'CHINESBIG5(88)' /d YES /f \
    > reg.log 2>&1
printf '%s\n' "host win32" "big5 0" > wanted
probe big5 > got
same "the registry says that it is" wanted got

# ---- A disc image ----

# One second of a rising line, left and right.
perl -e 'print pack("v2", $_ * 7 % 30000 + 1, $_ * 3 % 30000 + 1) for 0 .. 44099' > disc.bin
printf 'FILE "disc.bin" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n' > disc.cue
printf '%s\n' "host win32" "no disc -1" "inserted 0" "open 0" "tracks 1" "play 0" "1 8 15 22 " \
    "status -1" "stop 0" "close 0" > wanted
probe disc disc.cue > got
same "a disc image plays, and the system has no drive" wanted got

# ---- The drawing board ----

"$native/tests/board_pictures"
perl -e 'my $data = pack("v*", map { $_ * 37 % 20000 + 5000 } 0 .. 9599);
    print "RIFF", pack("V", 36 + length $data), "WAVEfmt ", pack("VvvVVvv", 16, 1, 1, 48000, 96000, 2, 16), "data",
        pack("V", length $data), $data' > tone.wav
"$wine" "$build/bin/board.exe" tone.wav &
board_pid=$!
window=$(find_window "Drawing board")
xdotool windowactivate --sync "$window"
same_picture empty.ppm "the window shows the picture"

xev -geometry 800x600+0+0 > /dev/null &
cover_pid=$!
cover=$(find_window "Event Tester")
sleep 0.5
xdotool windowraise "$cover"
sleep 0.5
kill "$cover_pid"; wait "$cover_pid" 2>/dev/null || true
xdotool windowactivate --sync "$window"
same_picture empty.ppm "what was covered shows as before"

at() { xdotool mousemove --window "$window" "$1" "$2"; sleep 0.2; }
press() { xdotool mousedown 1; sleep 0.2; xdotool mouseup 1; sleep 0.2; }
# Held for some frames, as by a hand: the library asks what is held.
type_key() { xdotool keydown "$1"; sleep 0.3; xdotool keyup "$1"; sleep 0.3; }
for key in i n k; do type_key "$key"; done
at 100 200; press
at 330 10; press
at 420 330; press
at 600 440
same_picture drawn.ppm "keys and clicks arrive"
type_key space
same_picture night.ppm "a change of the palette shows without a present"
type_key space
same_picture drawn.ppm "and so does its way back"

sleep 1
xdotool key alt+F4 # the window manager closes it
code=0; wait "$board_pid" || code=$?
[ "$code" = 0 ] && ok "closing ends with exit code 0" || not_ok "closing ends with exit code $code"
convert BOARD.PCX saved.ppm
different=$(compare -metric AE drawn.ppm saved.ppm difference.png 2>&1 || true)
[ "$different" = 0 ] && ok "the quit procedure saved the picture" || not_ok "the saved picture: $different pixels differ"
rm -f BOARD.PCX

# The sound, played twice, sample by sample somewhere in what the device was given: one channel becomes two.
cat > find_sound.pl << 'END'
local $/; open my $file, "<:raw", "played.raw" or die "nothing was played\n"; my $played = <$file>;
my $sound = pack("v*", map { ($_ * 37 % 20000 + 5000) x 2 } 0 .. 9599);
my ($times, $from) = (0, 0);
while (($from = index($played, $sound, $from)) >= 0) { $times++; $from += length $sound }
print "$times\n";
END
times=$(perl find_sound.pl || true)
[ "$times" = 2 ] && ok "the sound comes out with its samples" || not_ok "the sound comes out $times times, not 2"
[ -z "${KEEP_PICTURES:-}" ] || cp played.raw "$KEEP_PICTURES" 2>/dev/null || true

"$wine" "$build/bin/board.exe" none.wav &
board_pid=$!
box=$(find_window "SystemError")
[ -n "$box" ] && ok "a fatal exit shows its box" || not_ok "a fatal exit shows its box"
sleep 0.5
xdotool windowactivate --sync "$box" key Return
code=0; wait "$board_pid" || code=$?
[ "$code" = 1 ] && ok "it ends with exit code 1" || not_ok "it ends with exit code $code"
[ -f BOARD.PCX ] && ok "the quit procedures run" || not_ok "the quit procedures run"

# ---- The game ----

# A whole play of it shows and sounds as it does on this machine. Windows packs PNG files in its own way.
same_pixels() { [ "$(compare -metric AE "$1" "$2" null: 2>&1)" = 0 ]; }
"$native/demo/demo" --host headless --tour --pictures native > demo.log 2>&1 || not_ok "the game's tour on this machine"
"$wine" "$build/bin/demo.exe" --host headless --tour --pictures windows > demo_windows.log 2>&1 ||
    not_ok "the game's tour reaches the end"
for file in native/*.png; do
    same_pixels "$file" "windows/$(basename "$file")" || not_ok "the game's tour differs in $(basename "$file")"
done
cmp native/sound.wav windows/sound.wav || not_ok "the game's tour differs in its sound"
ok "the game's tour, $(ls native/*.png | wc -l) pictures and the sound"

# Played with keys and recorded on Windows, and played again from the record on this machine.
INKSTONE_RECORD=windows.rec "$wine" "$build/bin/demo.exe" --folder game &
demo_pid=$!
window=$(find_window "The Moon in the Ink")
xdotool windowactivate --sync "$window"
# The title page comes out of the dark, and its menu has a frame of gold.
frame_shows() {
    import -window "$window" shown.png
    [ "$(convert shown.png -format '%[fx:p{63,239}.r > 0.8 && p{63,239}.b < 0.3]' info:)" = 1 ]
}
for try in $(seq 80); do frame_shows && break; sleep 0.2; done
for key in Return m e i Return space space space; do type_key $key; done
sleep 2
for key in space space; do type_key $key; done
at 478 320; press
sleep 1
xdotool key alt+F4
code=0; wait "$demo_pid" || code=$?
[ "$code" = 0 ] && ok "closing the game ends with exit code 0" || not_ok "closing the game ends with exit code $code"
code=0
INKSTONE_HOST=headless INKSTONE_REPLAY=windows.rec "$native/demo/demo" --content "$build/bin/content" --folder again \
    2> verdict || code=$?
[ "$code" = 0 ] && grep -q "seconds, equal" verdict && ok "its record plays the same here: $(tail -n 1 verdict)" ||
    not_ok "its record here: $(cat verdict)"

echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
