#!/bin/sh
# Prepares the sysroot for the 32-bit ARM build: arm-sysroot.sh FOLDER
#
# Downloads the armhf packages that the build links with, and what they depend on, from the distribution that this machine
# takes its own packages from, and unpacks them into FOLDER. The machine's own package state is neither read nor changed:
# apt works here on lists, cache and status of its own, below FOLDER. Does nothing when the sysroot is there.
#
# Exit status: 0 if the sysroot is ready, 75 if the packages could not be fetched, even later (a mirror may be away, or
# in the middle of an update), and 1 for all else.
set -eu

sysroot=$(mkdir -p "$1" && cd "$1" && pwd)
. "$(dirname -- "$0")/../scripts/packages.sh"
packages=$packages_of_sysroot
stamp=$sysroot/.packages
if [ "$(cat "$stamp" 2>/dev/null)" = "$packages" ]; then exit 0; fi

apt=$sysroot/.apt
mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial"
: > "$apt/status"
private() {
    tool=$1
    shift
    "$tool" -qq -y -o APT::Architecture=armhf -o APT::Architectures=armhf -o APT::Sandbox::User=root \
        -o APT::Install-Recommends=false -o Dir::State="$apt" -o Dir::State::lists="$apt/lists" \
        -o Dir::State::status="$apt/status" -o Dir::Cache="$apt/cache" -o Dir::Cache::archives="$apt/cache/archives" \
        -o Debug::NoLocking=true -o APT::Get::List-Cleanup=false -o Acquire::Retries=3 "$@"
}

# Fetches everything. A package that is not in the lists is a mistake in this file, unless lists are missing.
fetch() {
    lists=all
    private apt-get update --error-on=any || lists=some
    # shellcheck disable=SC2086 # the packages are words
    if ! private apt-get install --simulate $packages > /dev/null; then
        if [ $lists = all ]; then exit 1; fi
        return 1
    fi
    # shellcheck disable=SC2086
    private apt-get install --download-only $packages
}

echo "==> Fetching the ARM packages" >&2
for wait in 15 30 60 0; do
    if fetch; then break; fi
    if [ $wait = 0 ]; then
        echo "==> The ARM packages could not be fetched" >&2
        exit 75
    fi
    echo "==> Some could not be fetched; trying again in $wait seconds" >&2
    sleep $wait
done

for package in "$apt"/cache/archives/*.deb; do
    dpkg -x "$package" "$sysroot"
done
rm -rf "$apt"
printf '%s' "$packages" > "$stamp"
