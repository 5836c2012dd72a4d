#!/usr/bin/env bash
# Checks how the code is written: scripts/check-style.sh [FOLDER...]
#
# clang-format for all C and C++, but for the rows in families/, which are kept in columns by hand; clang-tidy for the
# programs and libraries as the preset clang compiles them, file by file: all of them, or those in the folders that are
# named. Installs both if they are missing. What they look for is in .clang-format and .clang-tidy.
set -euo pipefail
root=$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")
source "$root/scripts/setup.sh"
folders=("$@")
[[ $# -gt 0 ]] || folders=(marshal frame introspect driver host client trace bench)

install_packages "$packages_to_build" "$packages_to_test" "$packages_for_style"
cd "$root"

say "Checking the layout"
git ls-files -z '*.cc' '*.h' '*.c' ':!families' | xargs -0 clang-format-14 --dry-run --Werror

configured "$root/build/clang" || configure clang -DBUILD_TESTING=ON
say "Looking for mistakes"
quietly run-clang-tidy-14 -quiet -j "$(nproc)" -p build/clang \
    "^$root/($(IFS='|' && echo "${folders[*]}"))/.*\.(cc|cxx)\$" ||
    die "clang-tidy objects; its messages are above"
