#!/usr/bin/env bash
# The network benchmark: builds the default preset's Probe servers and
# net_bench clients and measures each ORB with itself in the same run (the
# yvidl client against the yvidl server, the omniORB client against the
# omniORB server), then prints the figures and their ratios. Arguments are
# passed to net_bench (--calls N, --bulk N, --repeat N).
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
root=$(pwd)

cmake --preset default >/dev/null
targets=(interop_omni_server net_bench_omni interop_yv_server net_bench_yv)
cmake --build --preset default -j 2 --target "${targets[@]}"

. "$root/tests/interop/interop_lib.sh"
make_work_dir

# measure <kind>: prints the two figures of that ORB with itself.
measure() {
    local kind=$1
    shift
    start_server "$kind" "$root/build/bin/interop_${kind}_server"
    # shellcheck disable=SC2046
    timeout 600 "$root/build/bin/net_bench_$kind" $(orb_args "$kind") --ior-file "$work/server.ior" "$@" \
        >"$work/$kind.out"
    stop_server
    rm -f "$work/server.ior"
    cat "$work/$kind.out"
}

figure() {
    sed -n "s/^$1 //p" "$2"
}

echo "== omniORB client and server"
measure omni "$@"
if [ -x build/bin/net_bench_yv ] && [ -x build/bin/interop_yv_server ]; then
    echo "== yvidl client and server"
    measure yv "$@"
    awk -v yl="$(figure latency_us "$work/yv.out")" -v ol="$(figure latency_us "$work/omni.out")" \
        -v yt="$(figure throughput_mib_s "$work/yv.out")" -v ot="$(figure throughput_mib_s "$work/omni.out")" \
        'BEGIN {
            printf "== yvidl / omniORB\n"
            printf "latency    %.2f us / %.2f us = %.2f (target: at most 1)\n", yl, ol, yl / ol
            printf "throughput %.1f MiB/s / %.1f MiB/s = %.2f (target: at least 1)\n", yt, ot, yt / ot
        }'
else
    echo "== yvidl side not built; no ratios"
fi
