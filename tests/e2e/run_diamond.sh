#!/bin/sh
# Generates the client and the skeleton of Diamond.idl, builds them with
# Diamond_test.cpp into one test program per dispatch table layout and runs
# each program (every test on both dispatch paths):
#   auto  -poa:-xTIE        tables sized to their names
#   p0    -poa:-xTIE:-p0    one slot per table: every lookup walks one chain
#   p6    -poa:-xTIE:-p6    64 slots per table: mostly empty slots
#   raises -poa:-xTIE:-xEnforceRaises:-p2   4 slots, raises clauses enforced
#         (the test program is told so by YV_E2E_ENFORCE_RAISES)
# Exits 77 (skipped) when the compiler or its back ends are not built.
#
# run_diamond.sh <yvidl> <c++ compiler> <runtime include dir> <runtime library>
#                <gtest_main library> <gtest library> [extra compiler and linker flags]
set -e
yvidl=$1 cxx=$2 include=$3 runtime=$4 gtest_main=$5 gtest=$6 flags=${7:-}
here=$(cd "$(dirname "$0")" && pwd)
[ -x "$yvidl" ] || exit 77
for lib in libyv_cxx_ibe.so libyv_poa_cxx_ibe.so; do
    [ -f "$(dirname "$yvidl")/../lib/$lib" ] || exit 77
done
work=$(mktemp -d "${TMPDIR:-/tmp}/yv-e2e.XXXXXX")
trap 'rm -rf "$work"' EXIT

# compile <source> [defines]
compile() {
    "$cxx" -std=c++17 -Wall -Wextra -Werror $flags ${2:-} -I. -I"$include" -c "$1" -o "$1.o"
}

# The test program and the client code are the same for every layout.
cd "$work"
cp "$here/Diamond.idl" "$here/Diamond_test.cpp" .
"$yvidl" -base Diamond.idl
compile Diamond.cxx

for variant in auto:-xTIE p0:-xTIE:-p0 p6:-xTIE:-p6 raises:-xTIE:-xEnforceRaises:-p2; do
    name=${variant%%:*} options=${variant#*:} defines=
    [ "$name" = raises ] && defines=-DYV_E2E_ENFORCE_RAISES
    mkdir "$name"
    (
        cd "$name"
        cp ../Diamond.idl ../Diamond.hh .
        "$yvidl" -poa:"$options" Diamond.idl
        cp ../Diamond_test.cpp .
        compile DiamondS.cxx
        compile Diamond_test.cpp "$defines"
        "$cxx" Diamond_test.cpp.o DiamondS.cxx.o ../Diamond.cxx.o "$runtime" "$gtest_main" "$gtest" $flags \
            -pthread -Wl,-rpath,"$(dirname "$runtime")" -o diamond_test
    )
done

# The layouts really differ: the highest slot that holds a name is 0 with one
# slot, below 16 when sized to the names (at most 15 per table), and above
# it with 64 slots.
highest_slot() {
    grep -o '_entry_[0-9]*_' "$1" | tr -dc '0-9\n' | sort -n | tail -1
}
if [ "$(highest_slot p0/DiamondS.cxx)" -ne 0 ] || [ "$(highest_slot auto/DiamondS.cxx)" -ge 16 ] \
    || [ "$(highest_slot p6/DiamondS.cxx)" -lt 16 ]; then
    echo "dispatch tables were not laid out as their options ask" >&2
    exit 1
fi

for name in auto p0 p6 raises; do
    echo "== $name"
    "./$name/diamond_test" --gtest_brief=1
done
