#!/usr/bin/env bash
# The example bank served by yvidl's bank_server and called by the example
# client built against omniORB: starts the server on 127.0.0.1 (a port the
# system chooses), runs the client on the reference file the server writes,
# compares what the client prints with the expected text and stops the
# server by its PID (it must exit 0).
#
# run_bank.sh <bank server> <bank client> <expected client output>
# Exits 77 (skipped) when a program is missing.
set -u

server=$1 client=$2 expected=$3
here=$(cd "$(dirname "$0")" && pwd)
. "$here/interop_lib.sh"

[ -x "$server" ] && [ -x "$client" ] || skip "programs not built"
make_work_dir

# shellcheck disable=SC2046
timeout -k 10 "$INTEROP_SERVER_LIMIT" "$server" $(orb_args yv) "$work/branch.ior" >"$work/server.log" 2>&1 &
server_pid=$!
pids+=("$server_pid")
wait_for_file "$work/branch.ior" "$server_pid" || { cat "$work/server.log" >&2; fail "no reference written"; }

run_client omni "$client" "$work/branch.ior" >"$work/client.out"
status=$?
[ $status -eq 0 ] || { cat "$work/client.out"; fail "the omniORB bank client ended with status $status"; }
if ! diff -u "$expected" "$work/client.out"; then
    fail "the omniORB bank client printed something else"
fi
stop_server || exit 1
echo "ok: the omniORB bank client got the expected answers"
