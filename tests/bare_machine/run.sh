#!/usr/bin/env bash
# A newcomer's machine: a bare Debian of the release this machine runs, made in a temporary folder from the same
# package sources, in which ./run and ./check do everything as the README promises. What ./run saved is looked at: the
# page of Chinese text must be the one in docs/pictures. Takes root, debootstrap and the network; without root it says
# that it is left out. Usage: run.sh
set -euo pipefail
root=$(realpath "$(dirname "$0")/../..")
. "$root/scripts/packages.sh"

if [ "$(id -u)" != 0 ]; then
    echo "left out: making a bare machine takes root"
    exit 0
fi
need_packages debootstrap
# shellcheck disable=SC1091
release=$(. /etc/os-release && echo "$ID $VERSION_CODENAME")
[ "${release% *}" = debian ] || { echo "left out: this machine runs no Debian"; exit 0; }
release=${release#* }

place=$(mktemp -d)
machine=$place/machine
leave() {
    local mounted
    for mounted in proc dev/pts dev; do umount -l "$machine/$mounted" 2>/dev/null || true; done
    rm -rf --one-file-system "$place"
}
trap leave EXIT

# Debian's own archives, as this machine knows them, and how it reaches them.
apt-get indextargets --format '$(ORIGIN)|deb $(REPO_URI) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' |
    sed -n 's/^Debian|//p' | sort -u >"$place/sources.list"
mirror=$(awk -v release="$release" '$3 == release { print $2; exit }' "$place/sources.list")
[ -n "$mirror" ] || { echo "FAILED: apt-get update has not been run here: no archive of $release is known"; exit 1; }

echo "Making a bare Debian ($release)"
debootstrap --variant=minbase "$release" "$machine" "$mirror" >"$place/debootstrap.log" 2>&1 ||
    { tail -n 20 "$place/debootstrap.log"; exit 1; }
cp "$place/sources.list" "$machine/etc/apt/sources.list"
apt-config dump Acquire >"$machine/etc/apt/apt.conf.d/99acquire"
cp /etc/resolv.conf /etc/hosts "$machine/etc/"
mount -t proc proc "$machine/proc"
mount --bind /dev "$machine/dev"

# The files of the checkout, with what is not committed yet, without what was built.
mkdir "$machine/inkstone"
(cd "$root" && git ls-files -z --cached --others --exclude-standard | tar --null --ignore-failed-read -cf - -T -) |
    tar -xf - -C "$machine/inkstone"

as_newcomer() {
    chroot "$machine" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin TERM=dumb LANG=C.UTF-8 \
        sh -c "cd /inkstone && $1" </dev/null
}
# What apt says of each package stands in a log of its own.
as_newcomer "./run" >"$place/run.log" 2>&1 || { tail -n 60 "$place/run.log"; exit 1; }
grep -E '^(==|The Moon|[0-9]+ pictures)' "$place/run.log"
as_newcomer "cmp demo-pictures/09-treasures.png docs/pictures/speech.png" ||
    { echo "FAILED: ./run does not show what the old master says"; exit 1; }
echo "ok: ./run on a bare machine, with its Chinese text"
as_newcomer "./check" >"$place/check.log" 2>&1 || { tail -n 60 "$place/check.log"; exit 1; }
tail -n 4 "$place/check.log"
! grep -E 'Skipped|Not Run' "$place/check.log" || { echo "FAILED: tests were left out on a bare machine"; exit 1; }
echo "ok: ./check on a bare machine"
