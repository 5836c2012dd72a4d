#!/usr/bin/env bash
# Do the packages in dist/ work in a Debian 12 that has nothing yet? tests/packages/fresh-root.sh [FOLDER]
#
# Installs the host without a driver, then all of them; starts the service as its unit and as its init script would, and
# boots systemd in a container; makes calls, and builds programs (debian/tests); upgrades over a changed configuration;
# purges, and looks for what is left. Needs root and 2 GB below FOLDER (/tmp). What it made goes away at its end. All is
# fetched at first; then there is no network but the root's own, in which no port is taken. Ends with status 75 if
# something could not be fetched.
set -euo pipefail
root=$(dirname -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")")
source "$root/scripts/setup.sh"
source "$root/scripts/root.sh"

[[ $EUID -eq 0 ]] || die "only root can make a root"
if [[ ${1-} != --inside && ${1-} != --offline ]]; then
    install_packages mmdebstrap systemd-container iproute2
    bare=$(mktemp -d "${1:-/tmp}/fresh-root.XXXXXX")
    trap 'rm -rf --one-file-system "$bare"' EXIT
    unshare --mount --mount-proc --pid --fork --kill-child "$0" --inside "$bare"
    exit
fi
bare=$2

all=(lmq-common lmq-plugin lmq-host lmqctl lmq-sim liblmq-dev python3-lmq lmq-doc)
of_tests=(busybox gcc libc6-dev pkg-config cmake make python3-pytest python3-prometheus-client)

there() { in_root "$bare" "$@"; }
expect() { # expect TEXT OUTPUT: the output holds the text
    [[ $2 == *"$1"* ]] || die "expected '$1' in: $2"
}
install() {
    quietly in_root "$bare" apt-get -q -y --no-install-recommends install "$@" || die "cannot install $*; messages are above"
}
# The names of the packages' files in the root.
packages() { (cd "$bare/root/dist" && for name; do printf '/root/dist/%s\n' "$name"_*.deb; done); }

# call_service: waits until the service answers, and calls it.
call_service() {
    until there lmqctl --timeout 60 call lmq_init_system p_cfg.num_dev=1 'p_cfg.dev_cfg[0].enbl=1' >"$bare/root/said" 2>&1; do
        kill -0 "$1" || die "the service has ended"
        grep -q 'cannot connect' "$bare/root/said" || die "the call failed: $(cat "$bare/root/said")"
        sleep 0.2
    done
    expect 'wd_timer' "$(there lmqctl call vx_watchdog_get 0)"
}

# What systemd would start, as the user that it would be.
as_the_unit_says() {
    local start
    start=$(sed -n 's/^ExecStart=//p' "$bare/lib/systemd/system/lmq-host.service")
    there sh -c "echo \$\$ >/root/service.pid; exec setpriv --reuid lmq-host --regid lmq-host --clear-groups --no-new-privs $start"
}

without_a_driver() {
    say "Installing the host without a driver"
    mapfile -t files < <(packages lmq-common lmq-plugin lmq-host)
    install "${files[@]}"
    expect lmq-host "$(there getent passwd lmq-host)"
    local said
    said=$(as_the_unit_says 2>&1) && die "the service starts without a driver"
    expect "no driver" "$said"
    expect "lmq-sim" "$said"
    there systemd-analyze verify --man=no lmq-host.service
}

as_a_service() {
    say "Installing all, and starting the service"
    mapfile -t files < <(packages lmqctl lmq-sim liblmq-dev python3-lmq lmq-doc)
    install "${files[@]}"
    local service
    as_the_unit_says >"$bare/root/service.log" 2>&1 &
    service=$!
    call_service "$service"
    there sh -c 'kill $(cat /root/service.pid)'
    wait "$service" || die "the service ended with a failure: $(cat "$bare/root/service.log")"
}

# What only systemd itself can show: readiness, the sandbox, and the trigger that starts the service anew.
as_booted() {
    say "Booting systemd, and trying the service"
    local units=$bare/etc/systemd/system status=0
    cp -r "$root/debian/tests" "$bare/root/tests"
    ln -s ../tried.service "$units/multi-user.target.wants/"
    cat >"$units/tried.service" <<'END'
[Unit]
After=lmq-host.service
SuccessAction=exit
FailureAction=exit
[Service]
Type=oneshot
ExecStart=/root/tests/service
StandardOutput=file:/root/said
StandardError=file:/root/said
TimeoutStartSec=300
END
    rm -f "$bare/root/said"
    umount "$bare/proc" # the container mounts its own
    SYSTEMD_NSPAWN_UNIFIED_HIERARCHY=1 systemd-nspawn --quiet --keep-unit --register=no --private-network \
        --console=pipe --directory="$bare" --boot </dev/null >"$bare/root/boot.log" 2>&1 || status=$?
    mount -t proc proc "$bare/proc"
    rm "$units/tried.service" "$units/multi-user.target.wants/tried.service"
    if [[ ! -e $bare/root/said ]]; then
        say "NOT RUN: debian/tests/service, as systemd does not start here: $(tail -n 1 "$bare/root/boot.log")"
    elif [[ $status -ne 0 ]]; then
        die "debian/tests/service failed: $(cat "$bare/root/said" "$bare/root/boot.log")"
    fi
}

by_init_script() {
    say "Starting it by the init script, under BusyBox"
    install busybox
    local script=(busybox sh /usr/share/lmq-host/lmq-host.init)
    there "${script[@]}" start
    expect "is running" "$(there "${script[@]}" status)"
    call_service $$
    there "${script[@]}" stop
    expect "is not running" "$(there "${script[@]}" status || true)"
    rm -f "$bare/var/log/lmq-host.log"
}

by_their_own_tests() {
    local test
    install "${of_tests[@]}"
    for test in call bench build; do
        say "debian/tests/$test"
        quietly in_root "$bare" "/root/tests/$test" || die "debian/tests/$test failed; its messages are above"
    done
}

# The same packages with a later version, over a configuration that somebody has changed.
upgraded() {
    say "Upgrading"
    echo "slow=500" >>"$bare/etc/lmq-host.conf"
    local name
    for name in "${all[@]}"; do
        there sh -euc "cd /root && rm -rf later && dpkg-deb -R dist/${name}_*.deb later &&
            sed -i 's/^\(Version: .*\)/\1+later/; s/\((= [^)]*\))/\1+later)/g' later/DEBIAN/control &&
            dpkg-deb -Znone --build later $name.later.deb >/dev/null"
    done
    there sh -euc 'cd /root && dpkg -i ./*.later.deb' >"$bare/root/said" 2>&1 ||
        die "the upgrade failed: $(cat "$bare/root/said")"
    expect "slow=500" "$(cat "$bare/etc/lmq-host.conf")"
    there dpkg --audit
    quietly in_root "$bare" /root/tests/call || die "debian/tests/call failed after the upgrade; its messages are above"
}

purged() {
    say "Purging"
    quietly in_root "$bare" apt-get -q -y purge "${all[@]}" ||
        die "cannot purge; messages are above"
    local left
    left=$(there find / -xdev \( -path /proc -o -path /root -o -path /tmp \) -prune -o -iname '*lmq*' -print)
    [[ -z $left ]] || die "left behind: $left"
}

if [[ $1 == --inside ]]; then
    make_root "$bare" ""
    mkdir "$bare/root/dist"
    cp "$root"/dist/*_all.deb "$root"/dist/*_"$(dpkg --print-architecture)".deb "$bare/root/dist"
    rm -f "$bare"/root/dist/*-dbgsym_*
    say "Fetching what the packages and their tests need"
    mapfile -t files < <(packages "${all[@]}")
    quietly in_root "$bare" apt-get -q -y --no-install-recommends --download-only install "${files[@]}" "${of_tests[@]}" ||
        die_unfetched "packages cannot be fetched; messages are above"
    exec unshare --net "$0" --offline "$bare"
fi
ip link set lo up
for step in without_a_driver as_a_service as_booted by_init_script by_their_own_tests upgraded purged; do $step; done
say "The packages work in a fresh root"
