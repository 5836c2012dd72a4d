# What ./run and ./test have in common: the steps from a bare Debian to a built tree.
# Sourced by bash with `root` set to the folder of the repository. A step says on standard error what it does and keeps
# its output to itself unless it fails; the first failure ends the script with one line.

source "$root/scripts/packages.sh"

# Exit status of a script whose packages could not be fetched: nothing is wrong here, and later it may go well.
unfetched=75

say() { printf '==> %s\n' "$*" >&2; }

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

die_unfetched() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit "$unfetched"
}

# quietly COMMAND...: shows the output of the command only if it fails.
quietly() {
    local output
    output=$("$@" </dev/null 2>&1) && return
    printf '%s\n' "$output" >&2
    return 1
}

# install_packages LIST...: installs the packages of these lists that are missing. Never asks for anything, a password included.
install_packages() {
    local package missing=() as_root=()
    # shellcheck disable=SC2048,SC2086 # a list is words
    set -- $*
    command -v apt-get dpkg-query >/dev/null || die "this is no Debian: install what CONTRIBUTING.md names, then use the presets"
    for package; do
        dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    [[ ${#missing[@]} -gt 0 ]] || return 0

    local by_hand="as root, run: apt-get install --no-install-recommends ${missing[*]}"
    if [[ $EUID -ne 0 ]]; then
        command -v sudo >/dev/null || die "packages are missing, and there is no sudo to install them; $by_hand"
        sudo -n true 2>/dev/null || die "packages are missing, and sudo wants a password; $by_hand"
        as_root=(sudo -n)
    fi
    say "Installing ${missing[*]}"
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300)
    local wait
    for wait in 15 30 60 0; do
        if quietly "${apt[@]}" update &&
            quietly "${apt[@]}" install --no-install-recommends --download-only "${missing[@]}"; then break; fi
        [[ $wait -gt 0 ]] || die_unfetched "apt-get cannot fetch the packages; its messages are above"
        say "Trying again in $wait seconds"
        sleep "$wait"
    done
    quietly "${apt[@]}" install --no-install-recommends "${missing[@]}" ||
        die "apt-get cannot install the packages; its messages are above"
}

# prepare_sysroot: the target's libraries, in the folder that LMQ_SYSROOT names or below build/.
prepare_sysroot() {
    local status=0
    "$root/cmake/arm-sysroot.sh" "${LMQ_SYSROOT:-$root/build/arm-sysroot}" </dev/null >&2 || status=$?
    [[ $status -ne $unfetched ]] || die_unfetched "the packages of the target cannot be fetched; messages are above"
    [[ $status -eq 0 ]] || die "there is no sysroot for the target; messages are above"
}

# configured BUILD: whether the build folder is ready, and of this place: a copied repository brings one of another.
configured() {
    [[ -f $1/build.ninja ]] && grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$1/CMakeCache.txt"
}

# configure PRESET [OPTION...]
configure() {
    local preset=$1 fresh=()
    configured "$root/build/$preset" || fresh=(--fresh)
    say "Configuring build/$preset"
    quietly cmake -S "$root" "${fresh[@]}" --preset "$@" || die "CMake cannot configure build/$preset; its messages are above"
}

# build PRESET [TARGET...]: shows the compiler's messages, and progress to a terminal.
build() {
    local preset=$1 targets=() silent=(-- --quiet)
    shift
    [[ $# -eq 0 ]] || targets=(--target "$@")
    [[ ! -t 2 ]] || silent=()
    say "Building build/$preset"
    cmake --build "$root/build/$preset" "${targets[@]}" "${silent[@]}" </dev/null >&2 ||
        die "the build of build/$preset failed; the compiler's messages are above"
}
