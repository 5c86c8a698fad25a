#!/usr/bin/env bash
# Builds the default preset's CDR benchmark and runs it: this runtime's
# encoder and decoder against omniORB's on the same sequence of 10,000
# records, in the same run (see bench/README.md). Arguments are passed on
# to yv_cdr_bench.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."

cmake --preset default >/dev/null
cmake --build --preset default -j 2 --target yv_cdr_bench
./build/bin/yv_cdr_bench "$@"
