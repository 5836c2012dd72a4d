#!/usr/bin/env bash
# Does a Debian 12 that has nothing yet do for this repository? tests/bare-root.sh [FOLDER]
#
# Makes one in a new folder below FOLDER (/tmp), copies a clean clone of HEAD into it, lets ./run start the host there and
# leave, runs all of ./test, and says what failed. Exit status 0 if nothing did. What it made goes away at its end.
# Needs root, 4 GB, and some twenty minutes of two cores. Packages come from where this machine takes its own.
set -euo pipefail
root=$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")
source "$root/scripts/setup.sh"
source "$root/scripts/root.sh"

[[ $EUID -eq 0 ]] || die "only root can make a root"
# Mounts and processes of its own: both are gone when this script is.
if [[ ${1-} != --inside ]]; then
    install_packages "mmdebstrap git"
    bare=$(mktemp -d "${1:-/tmp}/bare-root.XXXXXX")
    trap 'rm -rf --one-file-system "$bare"' EXIT
    unshare --mount --pid --fork --kill-child "$0" --inside "$bare"
    exit
fi

bare=$2
make_root "$bare" ""
quietly git clone --quiet --no-hardlinks "$root" "$bare/root/clone" || die "git cannot clone the repository"

# there COMMAND...: runs it in the clone.
there() { in_root "$bare" sh -c 'cd /root/clone && exec "$@"' sh "$@"; }

failed=()
started=$SECONDS
there ./run --check --listen 127.0.0.1:0 || failed+=("./run --check")
say "./run took $((SECONDS - started)) s"

there ./test || failed+=(./test)

[[ ${#failed[@]} -eq 0 ]] || die "failed in a bare root: ${failed[*]}"
say "All of it works in a bare root"
