#!/usr/bin/env bash
# Runs one pairing of the interoperability tests: starts a Probe server,
# waits for the reference it writes, runs a client's check list against it
# and stops the server by its PID. Servers listen on 127.0.0.1 on a port the
# system chooses; every process runs under `timeout`.
#
# run_pair.sh <server kind> <server> <client kind> <client> [naming]
#   kind: yv (yvidl runtime) or omni (omniORB); decides the ORB options.
#   naming: also start omniNames (its own data directory, a port the system
#   chooses); the server binds itself there and the client finds it through
#   a corbaname: URL instead of the reference file.
# Exits 77 (skipped) when a program or omniNames is missing.
set -u

server_kind=$1 server=$2 client_kind=$3 client=$4 mode=${5:-}
here=$(cd "$(dirname "$0")" && pwd)
. "$here/interop_lib.sh"

[ -x "$server" ] && [ -x "$client" ] || skip "programs not built"
if [ "$mode" = naming ]; then
    command -v omniNames >/dev/null && command -v catior >/dev/null || skip "omniNames or catior missing"
fi

make_work_dir
server_args=()
client_args=(--ior-file "$work/server.ior")
if [ "$mode" = naming ]; then
    start_naming_service
    name="interop/probe.$server_kind"
    server_args=(-ORBInitRef "NameService=corbaloc::127.0.0.1:$naming_port/NameService" --bind "$name")
    client_args=(--ref "corbaname::127.0.0.1:$naming_port#$name")
fi

start_server "$server_kind" "$server" "${server_args[@]}"
run_client "$client_kind" "$client" "${client_args[@]}"
status=$?
stop_server || status=1
exit $status
