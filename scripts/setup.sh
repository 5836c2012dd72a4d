# What ./run and ./test have in common: which Debian packages they need, and the steps up to a built tree.
# Sourced by bash with `root` set to the folder of the repository. A step says on standard error what it does and keeps
# its output to itself unless it fails; the first failure ends the script with one line.

packages_to_build=(g++ cmake ninja-build pkg-config libxmlrpc-core-c3-dev libmicrohttpd-dev libcli11-dev libexpat1-dev
                   libgnutls28-dev libcrypt-dev libcurl4-openssl-dev nlohmann-json3-dev libmimalloc-dev
                   libedit-dev)
packages_to_test=(libgtest-dev python3 openssl clang libclang-rt-14-dev zsh fish)

say() { printf '==> %s\n' "$*" >&2; }

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# quietly COMMAND...: shows the output of the command only if it fails.
quietly() {
    local output
    output=$("$@" </dev/null 2>&1) && return
    printf '%s\n' "$output" >&2
    return 1
}

# install_packages PACKAGE...: installs those that are missing. Never asks for anything, a password included.
install_packages() {
    local package missing=() as_root=()
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
    quietly "${apt[@]}" update || die "apt-get cannot read the lists of packages; its messages are above"
    quietly "${apt[@]}" install --no-install-recommends "${missing[@]}" ||
        die "apt-get cannot install the packages; its messages are above"
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
