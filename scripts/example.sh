#!/usr/bin/env bash
# Builds the compiler and the runtime (default preset), generates the client
# and skeleton code of examples/bank.idl in build/example/, compiles the
# example server examples/bank_server.cpp and client examples/bank_client.cpp
# against them and the runtime, starts the server in the background on
# 127.0.0.1 (a port the system chooses), runs the client against the
# reference the server wrote, and stops the server by its PID.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$(pwd)

cmake --preset default
cmake --build --preset default -j 2 --target yvidl yv_cxx_ibe yv_poa_cxx_ibe yv_runtime

out="$root/build/example"
rm -rf "$out"
mkdir -p "$out"
cd "$out"
echo "== yvidl -base -poa examples/bank.idl (in build/example/)"
"$root/build/bin/yvidl" -base -poa "$root/examples/bank.idl"
ls -l
echo "== compiling the example server and client"
cxx=${CXX:-c++}
for source in bank.cxx bankS.cxx "$root/examples/bank_server.cpp" "$root/examples/bank_client.cpp"; do
    "$cxx" -std=c++17 -Wall -Wextra -O1 -I. -I"$root/runtime/include" -c "$source" -o "$(basename "$source").o"
done
link() {
    "$cxx" "$@" -L"$root/build/lib" -lyv_runtime -pthread -Wl,-rpath,"$root/build/lib"
}
link bank.cxx.o bankS.cxx.o bank_server.cpp.o -o bank_server
link bank.cxx.o bank_client.cpp.o -o bank_client

echo "== starting build/example/bank_server"
rm -f branch.ior
timeout 120 ./bank_server -ORBListenEndpoints iiop://127.0.0.1:0 branch.ior &
server=$!
stop_server() {
    kill -TERM "$server" 2>/dev/null || true
    wait "$server" 2>/dev/null || true
}
trap stop_server EXIT
for _ in $(seq 1 100); do
    [ -s branch.ior ] && break
    kill -0 "$server" 2>/dev/null || { echo "bank_server ended early" >&2; exit 1; }
    sleep 0.1
done
[ -s branch.ior ] || { echo "bank_server wrote no reference" >&2; exit 1; }
echo "== running build/example/bank_client"
timeout 60 ./bank_client branch.ior
echo "== stopping the server"
kill -TERM "$server"
wait "$server"
trap - EXIT
