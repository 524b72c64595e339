#!/usr/bin/env bash
# Does what docs/tutorial.md says, with an installed Inkstone: runs the commands of its sh blocks in their order, writes
# the files whose names stand above its other blocks, and compares the pictures. With --update it makes them anew.
# Usage: run.sh BUILD_DIR [--update]
set -euo pipefail
here=$(realpath "$(dirname "$0")/../..")
build=$(realpath "$1")
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cmake --install "$build" --prefix "$place/prefix" >"$place/install.log"
libdir=$(dirname "$(find "$place/prefix" -name 'libinkstone.so' | head -1)")
export PATH="$place/prefix/bin:$PATH" CMAKE_PREFIX_PATH="$place/prefix" LD_LIBRARY_PATH="$libdir" INKSTONE_HOST=headless

# The same pixels in the same colours; how they are packed may differ from system to system.
same_picture() {
    local name
    for name in "$1" "$2"; do
        ink picture "$name" -o "$place/$(basename "$name").img"
        ink palette convert "$name" -o "$place/$(basename "$name").pal"
    done
    cmp "$place/$(basename "$1").img" "$place/$(basename "$2").img"
    cmp "$place/$(basename "$1").pal" "$place/$(basename "$2").pal"
}
show() {
    (cd content && ../build/lantern shot.pcx && ink picture shot.pcx -o "$place/$1.png" && rm shot.pcx)
    if [ "${update:-}" = --update ]; then
        cp "$place/$1.png" "$here/docs/pictures/$1.png"
    else
        cp "$here/docs/pictures/$1.png" "$place/expected.png"
        same_picture "$place/expected.png" "$place/$1.png"
    fi
}
run_line() {
    echo "+ $1"
    case $1 in
    # Nobody is there to end the game.
    *"--target run"*) timeout 5 bash -c "$1" >/dev/null || [ $? -eq 124 ] ;;
    *) eval "$1" ;;
    esac
}

update=${2:-}
cd "$place"
block="" name=""
while IFS= read -r line <&3; do
    case $block in
    "")
        case $line in
        '```sh') block="sh" ;;
        '```') [ -n "$name" ] || { echo "a block without a name"; exit 1; } && block="file" && : >"$name" ;;
        '`'*'`:') name=${line#\`} && name=${name%\`:} ;;
        '!['*pictures/tutorial-new.png*) show tutorial-new ;;
        '!['*pictures/tutorial-own.png*) show tutorial-own ;;
        esac
        ;;
    *)
        if [ "$line" = '```' ]; then
            block="" name=""
        elif [ "$block" = sh ]; then
            run_line "$line"
        else
            printf '%s\n' "$line" >>"$name"
        fi
        ;;
    esac
done 3<"$here/docs/tutorial.md"
# The picture that the reader made is the one that is shown.
same_picture "$place/tutorial-own.png" "$place/lantern/shot.png"
echo "the tutorial holds"
