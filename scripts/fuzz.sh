#!/usr/bin/env bash
# Builds the libFuzzer targets (fuzz/) with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer in build-fuzz/, and runs each for a given time.
#
#   scripts/fuzz.sh [-t SECONDS] [-j JOBS] [TARGET...]
#
# TARGET is preprocessor, frontend or pipeline (default: all three), each
# run for SECONDS (default 60) on a corpus in build-fuzz/corpus/<target>
# that starts from the project's IDL files, with the IDL dictionary. An
# input that takes more than 10 seconds or more than 2 GiB of memory counts
# as a failure, as a crash does; what a failure leaves is in
# build-fuzz/artifacts/<target>/ and should become a regression test
# (tests/driver/data/fuzz/, see docs/fuzzing.md). Exits non-zero when any
# target failed. Installs clang and its fuzzer runtime with apt-get when
# they are missing.
set -euo pipefail

# All in one block, read before it runs: a campaign takes hours, and the
# script may be edited meanwhile.
{
cd "$(dirname "${BASH_SOURCE[0]}")/.."

SECONDS_PER_TARGET=60
JOBS=2
while getopts "t:j:" opt; do
    case $opt in
    t) SECONDS_PER_TARGET=$OPTARG ;;
    j) JOBS=$OPTARG ;;
    *) echo "usage: $0 [-t SECONDS] [-j JOBS] [TARGET...]" >&2; exit 2 ;;
    esac
done
shift $((OPTIND - 1))
TARGETS=("$@")
if [ ${#TARGETS[@]} -eq 0 ]; then
    TARGETS=(preprocessor frontend pipeline)
fi
for target in "${TARGETS[@]}"; do
    case $target in
    preprocessor | frontend | pipeline) ;;
    *) echo "$0: no fuzz target '$target' (preprocessor, frontend, pipeline)" >&2; exit 2 ;;
    esac
done

if ! command -v clang++ >/dev/null 2>&1 ||
    ! ls /usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-x86_64.a >/dev/null 2>&1; then
    echo "== installing clang and its fuzzer runtime"
    sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        sudo=(sudo)
    fi
    "${sudo[@]}" apt-get update
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y --no-install-recommends clang libclang-rt-dev ||
        DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y --no-install-recommends clang libclang-rt-14-dev
fi

echo "== build (fuzz)"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j "$JOBS" --target "${TARGETS[@]/#/fuzz_}"

# Absolute paths: the pipeline target works in a directory of its own.
BUILD=$(pwd)/build-fuzz
DICT=$(pwd)/fuzz/idl.dict
SEEDS=$(find examples idl tests fuzz/include -name '*.idl' -not -path '*/build*' | sort)
status=0
for target in "${TARGETS[@]}"; do
    corpus=$BUILD/corpus/$target
    artifacts=$BUILD/artifacts/$target
    mkdir -p "$corpus" "$artifacts"
    # The pipeline target reads its switches from the first byte.
    for seed in $SEEDS; do
        name=$(echo "$seed" | tr '/' '_')
        if [ "$target" = pipeline ]; then
            { printf '\001'; cat "$seed"; } >"$corpus/seed_$name"
        else
            cp "$seed" "$corpus/seed_$name"
        fi
    done
    echo "== fuzz $target for ${SECONDS_PER_TARGET}s"
    if ! "$BUILD/bin/fuzz_$target" -max_total_time="$SECONDS_PER_TARGET" -timeout=10 -rss_limit_mb=2048 \
        -max_len=65536 -dict="$DICT" -artifact_prefix="$artifacts/" -print_final_stats=1 \
        "$corpus" 2>"$BUILD/fuzz-$target.log"; then
        status=1
        echo "fuzz_$target failed; see $BUILD/fuzz-$target.log and $artifacts/"
    fi
    # The last status line carries the coverage reached (cov: edges, ft: features).
    grep -E "^#[0-9]+.*cov:" "$BUILD/fuzz-$target.log" | tail -n 1 || true
    grep -E "^stat::|Done [0-9]+ runs|ERROR|SUMMARY" "$BUILD/fuzz-$target.log" || true
done
exit $status
}
