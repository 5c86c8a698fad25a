#!/bin/sh
# Builds the example server (examples/bank_server.cpp) over the generated
# code of examples/bank.idl, as scripts/example.sh does but warning-free with
# -Werror, and checks what it prints on both dispatch paths against
# data/bank_server.out.
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
trap 'rm -rf "$work"' EXIT

cd "$work"
"$yvidl" -base -poa "$source/examples/bank.idl"
for f in bank.cxx bankS.cxx "$source/examples/bank_server.cpp"; do
    "$cxx" -std=c++17 -Wall -Wextra -Werror $flags -I. -I"$include" -c "$f" -o "$(basename "$f").o"
done
"$cxx" bank.cxx.o bankS.cxx.o bank_server.cpp.o "$runtime" $flags -Wl,-rpath,"$(dirname "$runtime")" \
    -o bank_server
for path in colocated request; do
    YV_DISPATCH_PATH=$path ./bank_server > "$path.out"
    if ! cmp -s "$path.out" "$here/data/bank_server.out"; then
        echo "bank_server printed on the $path path:" >&2
        diff "$here/data/bank_server.out" "$path.out" >&2 || true
        exit 1
    fi
done
