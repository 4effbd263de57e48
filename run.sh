#!/bin/sh
# Builds the simulated node, starts it, plays a short session against it and leaves it running in the
# foreground until it is interrupted. With --demo it ends by itself behind the session, with status 0.
set -eu
cd "$(dirname "$0")"

demo=no
case "${1-}" in
    "") ;;
    --demo) demo=yes ;;
    *)
        echo "usage: ./run.sh [--demo]" >&2
        exit 2
        ;;
esac

. tools/packages.sh
# shellcheck disable=SC2086
sh tools/install-packages.sh $RUN_PACKAGES

log=$(mktemp)
node_output=$(mktemp)
node=
finish() {
    [ -z "$node" ] || kill "$node" 2>/dev/null || true
    rm -f "$log" "$node_output"
}
trap finish EXIT

echo "Building (the first time takes a few minutes) ..."
if ! { cmake --preset release && cmake --build --preset release -j "$(nproc)"; } >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    exit 1
fi

bin=build/release/bin
# Where the client looks for it, or on a free port if that one is taken.
for address in 127.0.0.1:8080 127.0.0.1:0; do
    "$bin/zyrnode" --listen "$address" --channels 2 --enable-ti --seed 1 >"$node_output" &
    node=$!
    tries=0
    until url=$(sed -n 's/^listening on //p' "$node_output") && [ -n "$url" ]; do
        tries=$((tries + 1))
        if [ "$tries" -gt 100 ] || ! kill -0 "$node" 2>/dev/null; then
            kill "$node" 2>/dev/null || true
            node=
            break
        fi
        sleep 0.1
    done
    [ -z "$node" ] || break
done
if [ -z "$node" ]; then
    echo "The node did not start." >&2
    exit 1
fi
echo "A simulated node with two channels listens on $url"

python3 tools/session.py "$url"

if [ "$demo" = yes ]; then
    kill -TERM "$node"
    wait "$node"
    node=
    exit 0
fi
echo "The node goes on; try \`ZYR_URL=$url $bin/zyrctl list\`. Interrupt (Ctrl-C) to stop it."
trap 'kill -TERM "$node"' INT TERM
wait "$node" || wait "$node" || true
node=
