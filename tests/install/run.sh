#!/usr/bin/env bash
# Installs a build into an empty place and uses it from there as a stranger does: a C program of ten lines, found once
# through pkg-config and once through find_package. Usage: run.sh BUILD_DIR
set -euo pipefail
here=$(realpath "$(dirname "$0")")
build=$(realpath "$1")
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cmake --install "$build" --prefix "$place/prefix" >"$place/install.log"
libdir=$(dirname "$(find "$place/prefix" -name 'libinkstone.so' | head -1)")

check_result() {
    local result
    result=$(cd "$place" && INKSTONE_HOST=headless LD_LIBRARY_PATH="$libdir" "$1")
    [ "$result" = "Inkstone on headless: pixel 14" ] || { echo "$2: unexpected: $result"; exit 1; }
    echo "ok: $2"
}

# shellcheck disable=SC2046
cc -std=c11 -Wall -Wextra -Werror "$here/ten_lines.c" -o "$place/by_pkg_config" \
    $(PKG_CONFIG_PATH="$libdir/pkgconfig" pkg-config --cflags --libs inkstone)
check_result "$place/by_pkg_config" "a C program through pkg-config"

cmake -S "$here" -B "$place/build" -DCMAKE_PREFIX_PATH="$place/prefix" >"$place/configure.log"
cmake --build "$place/build" >"$place/build.log"
check_result "$place/build/ten_lines" "a C program through find_package"
"$place/prefix/bin/ink" --help >/dev/null && echo "ok: the installed tool starts"
