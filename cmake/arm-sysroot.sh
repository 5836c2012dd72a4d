#!/bin/sh
# Prepares the sysroot for the 32-bit ARM build: arm-sysroot.sh FOLDER
#
# Downloads the armhf packages that the build links with, and what they depend on, from the distribution that this machine
# takes its own packages from, and unpacks them into FOLDER. The machine's own package state is neither read nor changed:
# apt works here on lists, cache and status of its own, below FOLDER. Does nothing when the sysroot is there.
set -eu

sysroot=$(mkdir -p "$1" && cd "$1" && pwd)
packages="libxmlrpc-core-c3-dev libmicrohttpd-dev libcli11-dev nlohmann-json3-dev libgtest-dev libbenchmark-dev libexpat1-dev libgnutls28-dev libcrypt-dev"
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
        -o Debug::NoLocking=true -o APT::Get::List-Cleanup=false "$@"
}
echo "==> Fetching the ARM packages" >&2
private apt-get update || echo "==> Some package lists are missing; going on with the others" >&2
# shellcheck disable=SC2086 # the packages are words
private apt-get install --download-only $packages

for package in "$apt"/cache/archives/*.deb; do
    dpkg -x "$package" "$sysroot"
done
rm -rf "$apt"
printf '%s' "$packages" > "$stamp"
