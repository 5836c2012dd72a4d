#!/usr/bin/env bash
# Does a Debian 12 that has nothing yet do for this repository? tests/bare-root.sh [FOLDER]
#
# Makes one in a new folder below FOLDER (/tmp), copies a clean clone of HEAD into it, lets ./run start the host there and
# leave, runs all of ./test, and says what failed. Exit status 0 if nothing did. What it made goes away at its end.
# Needs root, 4 GB, and some twenty minutes of two cores. Packages come from where this machine takes its own.
set -euo pipefail
root=$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")
source "$root/scripts/setup.sh"

[[ $EUID -eq 0 ]] || die "only root can make a root"
# Mounts and processes of its own: both are gone when this script is.
if [[ ${1-} != --inside ]]; then
    install_packages "debootstrap git"
    bare=$(mktemp -d "${1:-/tmp}/bare-root.XXXXXX")
    trap 'rm -rf --one-file-system "$bare"' EXIT
    unshare --mount --pid --fork --kill-child "$0" --inside "$bare"
    exit
fi

bare=$2
mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Codename: bookworm' 'Created-By: Packages' | head -n 1)
[[ -n $mirror ]] || die "this machine takes no packages from a Debian 12"
say "Making a bare Debian 12"
quietly debootstrap --variant=minbase bookworm "$bare" "$mirror" || die "debootstrap failed; its messages are above"
mount -t proc proc "$bare/proc"
mount -t devpts devpts "$bare/dev/pts"
cp -L /etc/resolv.conf "$bare/etc/resolv.conf"
quietly git clone --quiet --no-hardlinks "$root" "$bare/root/clone" || die "git cannot clone the repository"

# there COMMAND...: runs it in the clone, with nothing of this machine's environment but the way to the packages.
there() {
    local proxies=()
    mapfile -t proxies < <(env | grep -i '_proxy=' || true)
    env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin "${proxies[@]}" \
        chroot "$bare" sh -c 'cd /root/clone && exec "$@"' sh "$@"
}

failed=()
started=$SECONDS
there ./run --check --listen 127.0.0.1:0 || failed+=("./run --check")
say "./run took $((SECONDS - started)) s"

there ./test || failed+=(./test)

[[ ${#failed[@]} -eq 0 ]] || die "failed in a bare root: ${failed[*]}"
say "All of it works in a bare root"
