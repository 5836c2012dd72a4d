# Sourced by the tests: a host of their own on the simulated driver. Leaves its URL in LMQ_URL, and a folder in $folder.
folder=$(mktemp -d)
lmq-host --socket "$folder/socket" >"$folder/said" 2>&1 &
host=$!
trap 'kill $host 2>/dev/null; wait $host || true; rm -rf "$folder"' EXIT
until grep -q '^Listening on' "$folder/said"; do
    kill -0 $host 2>/dev/null || { cat "$folder/said" >&2; exit 1; }
    sleep 0.1
done
LMQ_URL=unix:$folder/socket
XDG_CACHE_HOME=$folder
export LMQ_URL XDG_CACHE_HOME
