#!/bin/sh
# Builds generated client and skeleton code into test programs and runs
# them on both dispatch paths:
#   - Wire.idl of this folder (client side only) with
#     GeneratedMarshal_test.cpp: marshaling, any operators and type codes;
#   - Mapping.idl of this folder (generated with AMI callbacks on) with
#     ClientMapping_test.cpp;
#   - Forward.idl, which declares Mapping's Run::Peer forward only, with
#     ForwardReference_test.cpp;
#   - Quota.idl, an interface derived from CORBA::Policy (generated with
#     -xTIE), with QuotaPolicy_test.cpp;
#   - Values.idl with ValueMapping_test.cpp: value types and boxes through
#     their generated classes, also over GIOP messages;
#   - the runtime's Bank.idl (generated with -xTIE and -xEnforceRaises) with
#     the runtime's own dispatch tests, which then call through the
#     generated proxies instead of hand-written ones.
# Exits 77 (skipped) when the compiler or its back ends are not built.
#
# run_generated_client.sh <yvidl> <c++ compiler> <runtime include dir>
#                         <runtime library> <gtest_main library> <gtest library>
#                         <source dir> [extra compiler and linker flags]
set -e
yvidl=$1 cxx=$2 include=$3 runtime=$4 gtest_main=$5 gtest=$6 source=$7 flags=${8:-}
here=$(cd "$(dirname "$0")" && pwd)
[ -x "$yvidl" ] || exit 77
for lib in libyv_cxx_ibe.so libyv_poa_cxx_ibe.so; do
    [ -f "$(dirname "$yvidl")/../lib/$lib" ] || exit 77
done
work=$(mktemp -d "${TMPDIR:-/tmp}/yv-generated-client.XXXXXX")
trap 'rm -rf "$work"' EXIT

# build <program> <test source> <generated sources...>
build() {
    program=$1
    shift
    objects=
    for f in "$@"; do
        "$cxx" -std=c++17 -Wall -Wextra -Werror $flags -I"$work" -I"$include" -c "$f" -o "$f.o"
        objects="$objects $f.o"
    done
    "$cxx" $objects "$runtime" "$gtest_main" "$gtest" $flags -pthread -Wl,-rpath,"$(dirname "$runtime")" \
        -o "$work/$program"
}

cd "$work"
cp "$here/Wire.idl" "$here/GeneratedMarshal_test.cpp" .
"$yvidl" -base Wire.idl
build wire_marshal GeneratedMarshal_test.cpp Wire.cxx
./wire_marshal --gtest_brief=1

cp "$here/Mapping.idl" "$here/ClientMapping_test.cpp" "$here/PeerServant.h" .
"$yvidl" -base:-xAMICallbacks -poa:-xAMICallbacks Mapping.idl
build client_mapping ClientMapping_test.cpp Mapping.cxx MappingS.cxx
./client_mapping --gtest_brief=1

# Forward.idl knows Run::Peer by a forward declaration only; Mapping's
# client source defines what its references need.
cp "$here/Forward.idl" "$here/ForwardReference_test.cpp" .
"$yvidl" -base -poa Forward.idl
build forward_reference ForwardReference_test.cpp Forward.cxx ForwardS.cxx Mapping.cxx MappingS.cxx
./forward_reference --gtest_brief=1

cp "$here/Quota.idl" "$here/QuotaPolicy_test.cpp" .
"$yvidl" -base -poa:-xTIE Quota.idl
build quota_policy QuotaPolicy_test.cpp Quota.cxx QuotaS.cxx
./quota_policy --gtest_brief=1

# Value types: OBV_ classes, default factories, values on every path.
cp "$here/Values.idl" "$here/ValueMapping_test.cpp" .
"$yvidl" -base -poa Values.idl
build value_mapping ValueMapping_test.cpp Values.cxx ValuesS.cxx
./value_mapping --gtest_brief=1

mkdir bank
cp "$source/tests/runtime/data/Bank.idl" "$source/tests/runtime/generated/Dispatch_test.cpp" bank/
(cd bank && "$yvidl" -base -poa:-xTIE:-xEnforceRaises Bank.idl)
cd bank
work="$work/bank"
build bank_dispatch Dispatch_test.cpp Bank.cxx BankS.cxx
./bank_dispatch --gtest_brief=1
