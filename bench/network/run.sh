#!/usr/bin/env bash
# The network benchmark: builds the default preset's Probe servers and
# net_bench clients and measures each ORB with itself in the same run (the
# yvidl client against the yvidl server, the omniORB client against the
# omniORB server), then prints the figures and their ratios.
#
# Two placements: as the scheduler puts the processes ("free"), and with
# client and server of both ORBs on one processor ("pinned", taskset), where
# the cost of a call is not blurred by the scheduler splitting the pair
# across processors. Each placement measures `--pairs N` pairs (default 1),
# the ORBs alternating, and keeps each ORB's best figures.
#
# run.sh [--pairs N] [--pin CPU] [--no-pin] [net_bench options: --calls N,
# --bulk N, --repeat N]
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
root=$(pwd)

pairs=1
pin=0
bench_args=()
while [ $# -gt 0 ]; do
    case $1 in
    --pairs) pairs=$2; shift 2 ;;
    --pin) pin=$2; shift 2 ;;
    --no-pin) pin=; shift ;;
    *) bench_args+=("$1"); shift ;;
    esac
done

cmake --preset default >/dev/null
targets=(interop_omni_server net_bench_omni interop_yv_server net_bench_yv)
cmake --build --preset default -j 2 --target "${targets[@]}"

. "$root/tests/interop/interop_lib.sh"
make_work_dir

# measure <kind> <output>: that ORB's figures with itself, into <output>.
measure() {
    local kind=$1 out=$2
    start_server "$kind" "$root/build/bin/interop_${kind}_server"
    # shellcheck disable=SC2046
    timeout 600 "$root/build/bin/net_bench_$kind" $(orb_args "$kind") --ior-file "$work/server.ior" \
        "${bench_args[@]}" >"$out"
    stop_server
    rm -f "$work/server.ior"
}

figure() {
    sed -n "s/^$1 //p" "$2"
}

# placement <name>: the pairs of one placement, their figures and the ratio
# of the best ones.
placement() {
    local name=$1 i
    echo "== $name (load: $(cut -d' ' -f1-3 /proc/loadavg))"
    for ((i = 1; i <= pairs; ++i)); do
        measure omni "$work/$name-omni-$i.out"
        measure yv "$work/$name-yv-$i.out"
        printf "pair %d: latency %s / %s us, throughput %s / %s MiB/s (yvidl / omniORB)\n" "$i" \
            "$(figure latency_us "$work/$name-yv-$i.out")" "$(figure latency_us "$work/$name-omni-$i.out")" \
            "$(figure throughput_mib_s "$work/$name-yv-$i.out")" "$(figure throughput_mib_s "$work/$name-omni-$i.out")"
    done
    awk -v name="$name" '
        FNR == 1 { yv = FILENAME ~ /-yv-/ }
        $1 == "latency_us" { if (yv) { if (!yl || $2 < yl) yl = $2 } else if (!ol || $2 < ol) ol = $2 }
        $1 == "throughput_mib_s" { if (yv) { if ($2 > yt) yt = $2 } else if ($2 > ot) ot = $2 }
        END {
            printf "%-6s latency    %.2f us / %.2f us = %.2f (target: at most 1)\n", name, yl, ol, yl / ol
            printf "%-6s throughput %.1f MiB/s / %.1f MiB/s = %.2f (target: at least 1)\n", name, yt, ot, yt / ot
        }' "$work/$name"-*.out
}

if [ ! -x build/bin/net_bench_yv ] || [ ! -x build/bin/interop_yv_server ]; then
    echo "== yvidl side not built; nothing to compare"
    exit 1
fi
placement free
if [ -n "$pin" ]; then
    # Both processes of both ORBs on one processor: the subshell and what it
    # starts inherit its affinity.
    (
        taskset -pc "$pin" "$BASHPID" >/dev/null
        placement pinned
    )
fi
