#!/usr/bin/env bash
# Builds the compiler (default preset) and runs it on examples/bank.idl in
# build/example/, then shows the generated skeleton header.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$(pwd)

cmake --preset default
cmake --build --preset default -j 2 --target yvidl yv_poa_cxx_ibe

out="$root/build/example"
rm -rf "$out"
mkdir -p "$out"
cd "$out"
echo "== yvidl -poa examples/bank.idl (in build/example/)"
"$root/build/bin/yvidl" -poa "$root/examples/bank.idl"
echo "== generated files"
ls -l
echo "== bankS.hh"
cat bankS.hh
