#!/usr/bin/env bash
# Runs a raw-socket test program (giop_malformed, giop_load) against a Probe
# server, then, when a client is given, that client's whole check list
# against the same server, which must still serve everything right.
#
# run_raw.sh <server kind> <server> [<client kind> <client>] -- <program> [arguments]
#   The program gets its arguments and then the file holding the server's
#   reference.
# Exits 77 (skipped) when a program is missing.
set -u

server_kind=$1 server=$2
shift 2
client_kind= client=
if [ "$1" != -- ]; then
    client_kind=$1 client=$2
    shift 2
fi
shift
program=("$@")
here=$(cd "$(dirname "$0")" && pwd)
. "$here/interop_lib.sh"

[ -x "$server" ] && [ -x "${program[0]}" ] || skip "programs not built"
[ -z "$client" ] || [ -x "$client" ] || skip "programs not built"

make_work_dir
start_server "$server_kind" "$server"
timeout -k 10 "$INTEROP_CLIENT_LIMIT" "${program[@]}" "$work/server.ior"
status=$?
if [ $status -eq 0 ] && [ -n "$client" ]; then
    echo "== the client's checks against the same server"
    run_client "$client_kind" "$client" --ior-file "$work/server.ior"
    status=$?
fi
stop_server || status=1
exit $status
