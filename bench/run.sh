#!/usr/bin/env bash
# Builds the default preset and runs the benchmark. When Debian's omniidl
# can be installed (or is there already), its C++ back end is timed on the
# same input in the same run for comparison; otherwise that part is skipped.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

cmake --preset default >/dev/null
cmake --build --preset default -j 2 --target yvidl yv_cxx_ibe yv_poa_cxx_ibe yv_bench

compare=()
if ! command -v omniidl >/dev/null 2>&1; then
    if [ "$(id -u)" -eq 0 ] && command -v apt-get >/dev/null 2>&1; then
        echo "== installing omniidl for comparison"
        { apt-get update && DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends omniidl; } \
            >/dev/null 2>&1 || echo "   omniidl could not be installed; comparison skipped"
    else
        echo "== omniidl not installed and cannot be installed here; comparison skipped"
    fi
fi
if command -v omniidl >/dev/null 2>&1; then
    compare=(--compare omniidl -bcxx)
fi

./build/bin/yv_bench "$@" "${compare[@]}"
