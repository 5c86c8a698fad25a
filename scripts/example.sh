#!/usr/bin/env bash
# Builds the compiler and the runtime (default preset), generates the client
# and skeleton code of examples/bank.idl in build/example/, compiles the
# example server examples/bank_server.cpp against them and the runtime, and
# runs it.
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
echo "== compiling the example server"
cxx=${CXX:-c++}
for source in bank.cxx bankS.cxx "$root/examples/bank_server.cpp"; do
    "$cxx" -std=c++17 -Wall -Wextra -O1 -I. -I"$root/runtime/include" -c "$source" -o "$(basename "$source").o"
done
"$cxx" bank.cxx.o bankS.cxx.o bank_server.cpp.o -L"$root/build/lib" -lyv_runtime \
    -Wl,-rpath,"$root/build/lib" -o bank_server
echo "== running build/example/bank_server"
./bank_server
