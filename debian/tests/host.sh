# Sourced by the tests: hosts of their own on the simulated driver, whose time goes by calls. start leaves the URL of a fresh
# one in LMQ_URL; $folder is a folder for files.
folder=$(mktemp -d)
export LMQ_SIM_CLOCK=10 LMQ_SIM_TRAFFIC=1:1000 XDG_CACHE_HOME="$folder" LMQ_URL="unix:$folder/socket"
host=
end() {
    [ -z "$host" ] || { kill "$host" && wait "$host"; } || true
    host=
}
trap 'end; rm -rf "$folder"' EXIT

start() {
    end
    : >"$folder/said" # what the one before has said is not waited for
    lmq-host --socket "$folder/socket" >"$folder/said" 2>&1 &
    host=$!
    until grep -q '^Listening on' "$folder/said"; do
        kill -0 "$host" 2>/dev/null || { cat "$folder/said" >&2; exit 1; }
        sleep 0.1
    done
}
