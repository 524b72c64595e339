# Installs the Debian packages a script needs and that are missing. Sourced by run, check and .ci/run.

say() { printf '\n== %s\n' "$*"; }

# What building the library, the tools, the demo and its content takes.
build_packages="g++ cmake ninja-build pkg-config libsdl2-dev libcli11-dev libfreetype-dev libpng-dev
  libimagequant-dev libgif-dev libsamplerate0-dev
  xfonts-intl-chinese xfonts-base"
# What the tests take on top.
test_packages="libgtest-dev imagemagick netpbm libavcodec-dev libavformat-dev libavutil-dev"
# What continuous integration takes on top: the second compiler with its sanitizers and fuzzer, the formatter, a
# display without a screen and a hand for it, and the peers of the benchmarks.
ci_packages="clang-14 clang libclang-rt-14-dev llvm-14 clang-format-14 clang-format xvfb xauth xdotool x11-utils openbox
  libbenchmark-dev liballegro4-dev liblua5.4-dev sox debootstrap"
# What building for Windows takes, and a Windows to test it on.
windows_packages="g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix googletest libcli11-dev wine wine64
  libz-mingw-w64-dev libasound2-plugins lld-14 llvm-14 clang-14 xvfb x11-utils xdotool openbox imagemagick debootstrap unzip"

need_packages() {
    local missing="" package
    for package in "$@"; do
        dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q ' installed$' || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    if ! command -v apt-get >/dev/null; then
        echo "This system has no apt-get. Install what corresponds to these Debian packages, then run this again:"
        echo " $missing"
        return 1
    fi
    say "Installing Debian packages:$missing"
    local as_root=""
    [ "$(id -u)" = 0 ] || as_root="sudo"
    export DEBIAN_FRONTEND=noninteractive
    # shellcheck disable=SC2086
    $as_root apt-get update -q && $as_root apt-get install -y -q --no-install-recommends $missing
}
