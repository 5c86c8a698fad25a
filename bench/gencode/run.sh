#!/usr/bin/env bash
# Builds the default preset's compiler and the generated-code benchmark and
# runs it: compile time and object size of the C++ that yvidl -base -poa and
# omniidl -bcxx write for the same IDL (10 and 100 interfaces unless
# --interfaces N is given), in the same run (see bench/README.md). Arguments
# are passed on to yv_gencode_bench.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."

if ! command -v omniidl >/dev/null 2>&1; then
    echo "omniidl is not installed (Debian: apt-get install omniidl libomniorb4-dev)" >&2
    exit 1
fi
cmake --preset default >/dev/null
cmake --build --preset default -j 2 --target yvidl yv_poa_cxx_ibe yv_cxx_ibe yv_gencode_bench
./build/bin/yv_gencode_bench "$@"
