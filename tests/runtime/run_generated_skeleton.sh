#!/bin/sh
# Generates the client side and the skeleton of data/Bank.idl with the
# compiler, builds them with the dispatch tests of this folder, and runs
# them on both dispatch paths. Exits 77 (skipped) when the compiler or its
# back ends have not been built.
#
# run_generated_skeleton.sh <yvidl> <c++ compiler> <runtime include dir>
#                           <runtime library> <gtest_main library> <gtest library>
#                           [extra compiler and linker flags]
set -e
yvidl=$1 cxx=$2 include=$3 runtime=$4 gtest_main=$5 gtest=$6 flags=${7:-}
here=$(cd "$(dirname "$0")" && pwd)
[ -x "$yvidl" ] || exit 77
[ -f "$(dirname "$yvidl")/../lib/libyv_poa_cxx_ibe.so" ] || exit 77
[ -f "$(dirname "$yvidl")/../lib/libyv_cxx_ibe.so" ] || exit 77
work=$(mktemp -d "${TMPDIR:-/tmp}/yv-generated-skeleton.XXXXXX")
trap 'rm -rf "$work"' EXIT
cp "$here/data/Bank.idl" "$here/generated/Dispatch_test.cpp" "$work/"
cd "$work"
"$yvidl" -base -poa:-xTIE:-xEnforceRaises Bank.idl
for f in BankS.cxx Dispatch_test.cpp Bank.cxx; do
    "$cxx" -std=c++17 -Wall -Wextra -Werror $flags -I. -I"$include" -c "$f" -o "$f.o"
done
"$cxx" BankS.cxx.o Dispatch_test.cpp.o Bank.cxx.o "$runtime" "$gtest_main" "$gtest" $flags -pthread \
    -Wl,-rpath,"$(dirname "$runtime")" -o generated_dispatch
./generated_dispatch --gtest_brief=1
