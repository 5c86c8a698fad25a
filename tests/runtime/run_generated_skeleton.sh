#!/bin/sh
# Generates the skeleton of data/Bank.idl with the compiler, builds it with
# the hand-written client side and the dispatch tests of this folder, and
# runs them on both dispatch paths. Exits 77 (skipped) when the compiler or
# its POA back end has not been built.
#
# run_generated_skeleton.sh <yvidl> <c++ compiler> <runtime include dir>
#                           <runtime library> <gtest_main library> <gtest library>
#                           [extra compiler and linker flags]
set -e
yvidl=$1 cxx=$2 include=$3 runtime=$4 gtest_main=$5 gtest=$6 flags=${7:-}
here=$(cd "$(dirname "$0")" && pwd)
[ -x "$yvidl" ] || exit 77
[ -f "$(dirname "$yvidl")/../lib/libyv_poa_cxx_ibe.so" ] || exit 77
work=$(mktemp -d "${TMPDIR:-/tmp}/yv-generated-skeleton.XXXXXX")
trap 'rm -rf "$work"' EXIT
cp "$here/data/Bank.idl" "$here/Dispatch_test.cpp" "$here/Bank.cpp" "$work/"
cd "$work"
"$yvidl" -poa:-xTIE:-xEnforceRaises Bank.idl
# The client header generator does not write proxies yet: the hand-written
# client header stands in for it.
cp "$here/Bank.hh" Bank.hh
for f in BankS.cxx Dispatch_test.cpp Bank.cpp; do
    "$cxx" -std=c++17 -Wall -Wextra -Werror $flags -I. -I"$include" -c "$f" -o "$f.o"
done
"$cxx" BankS.cxx.o Dispatch_test.cpp.o Bank.cpp.o "$runtime" "$gtest_main" "$gtest" $flags -pthread \
    -Wl,-rpath,"$(dirname "$runtime")" -o generated_dispatch
./generated_dispatch --gtest_brief=1
