# Roots: Debian 12 in a folder with little in it, made for a build or for a test.
# shellcheck shell=bash
# Sourced by bash after setup.sh, as root, inside mounts of the caller's own (unshare --mount).

# make_root FOLDER PACKAGES [ARCHITECTURE]: a root with these packages, which takes packages from where this machine does,
# those of another architecture too.
make_root() {
    local bare=$1 packages=$2 foreign=${3-} mirror
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Codename: bookworm' 'Created-By: Packages' | head -n 1)
    [[ -n $mirror ]] || die "this machine takes no packages from a Debian 12"
    say "Making a bare Debian 12"
    quietly mmdebstrap --variant=minbase --architectures="$(dpkg --print-architecture)${foreign:+,$foreign}" \
        ${packages:+--include="${packages// /,}"} bookworm "$bare" "$mirror" ||
        die_unfetched "mmdebstrap failed; its messages are above"
    mount -t proc proc "$bare/proc"
    mount -t devpts devpts "$bare/dev/pts"
    cp -L /etc/resolv.conf "$bare/etc/resolv.conf"
    quietly in_root "$bare" apt-get -q update || die_unfetched "the lists of packages cannot be fetched"
}

# remove_root FOLDER: removes what make_root has made.
remove_root() {
    umount "$1/proc" "$1/dev/pts"
    rm -rf --one-file-system "$1"
}

# in_root FOLDER COMMAND...: runs it there, with nothing of this machine's environment but the way to the packages.
in_root() {
    local bare=$1 proxies=()
    shift
    mapfile -t proxies < <(env | grep -i '_proxy=' || true)
    env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "${proxies[@]}" \
        chroot "$bare" "$@" </dev/null
}
