#!/bin/sh
# Builds the example server and client (examples/bank_server.cpp,
# examples/bank_client.cpp) over the generated code of examples/bank.idl, as
# scripts/example.sh does but warning-free with -Werror, runs the server on
# 127.0.0.1 (its own calls on every dispatch path) and the client against
# it over IIOP, and checks what the client prints against
# data/bank_client.out and that the server stops cleanly on SIGTERM.
# Exits 77 (skipped) when the compiler or its back ends are not built.
#
# run_example.sh <yvidl> <c++ compiler> <runtime include dir> <runtime library>
#                <source dir> [extra compiler and linker flags]
set -e
yvidl=$1 cxx=$2 include=$3 runtime=$4 source=$5 flags=${6:-}
here=$(cd "$(dirname "$0")" && pwd)
[ -x "$yvidl" ] || exit 77
for lib in libyv_cxx_ibe.so libyv_poa_cxx_ibe.so; do
    [ -f "$(dirname "$yvidl")/../lib/$lib" ] || exit 77
done
work=$(mktemp -d "${TMPDIR:-/tmp}/yv-example.XXXXXX")
server=
cleanup() {
    [ -n "$server" ] && kill -KILL "$server" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

cd "$work"
"$yvidl" -base -poa "$source/examples/bank.idl"
for f in bank.cxx bankS.cxx "$source/examples/bank_server.cpp" "$source/examples/bank_client.cpp"; do
    "$cxx" -std=c++17 -Wall -Wextra -Werror $flags -I. -I"$include" -c "$f" -o "$(basename "$f").o"
done
"$cxx" bank.cxx.o bankS.cxx.o bank_server.cpp.o "$runtime" $flags -pthread -Wl,-rpath,"$(dirname "$runtime")" \
    -o bank_server
"$cxx" bank.cxx.o bank_client.cpp.o "$runtime" $flags -pthread -Wl,-rpath,"$(dirname "$runtime")" -o bank_client
for path in colocated request wire; do
    rm -f branch.ior
    YV_DISPATCH_PATH=$path timeout 120 ./bank_server -ORBListenEndpoints iiop://127.0.0.1:0 branch.ior \
        > "server.$path.out" &
    server=$!
    i=0
    while [ ! -s branch.ior ] && [ $i -lt 200 ]; do
        kill -0 "$server" 2>/dev/null || break
        sleep 0.1
        i=$((i + 1))
    done
    timeout 60 ./bank_client branch.ior > "$path.out" || { echo "bank_client failed ($path)" >&2; exit 1; }
    kill -TERM "$server"
    status=0
    wait "$server" || status=$?
    server=
    if [ $status -ne 0 ]; then
        echo "bank_server ($path) ended with status $status" >&2
        exit 1
    fi
    if ! cmp -s "$path.out" "$here/data/bank_client.out"; then
        echo "bank_client printed with the server on the $path path:" >&2
        diff "$here/data/bank_client.out" "$path.out" >&2 || true
        exit 1
    fi
done
