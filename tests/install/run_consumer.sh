#!/usr/bin/env bash
# A user's project against the installed tree:
#
#   1. installs the build into a temporary prefix and moves the tree (it
#      must work wherever it is put); checks the installed files: the
#      compiler and its IDL directory, the manual page through `man -l`,
#      the pkg-config file, the runtime's soname;
#   2. configures examples/cmake-consumer (a copy, with the example sources
#      it builds) with Ninja against the moved prefix, builds it, runs the
#      bank server and the client against it;
#   3. touches an IDL file that the bank IDL includes and checks that
#      exactly the steps that depend on it run again, then that one more
#      build does nothing.
#
# run_consumer.sh <cmake> <build dir> <source dir> <ninja> [<compiler flags>]
set -euo pipefail

cmake=$1
build=$2
source=$3
ninja=$4
flags=${5:-}

fail() {
    echo "FAIL: $*" >&2
    exit 1
}
step() { echo "== $*"; }

[ -n "$ninja" ] || fail "ninja is not installed (Debian package ninja-build)"

tmp=$(mktemp -d)
server_pid=
cleanup() {
    if [ -n "$server_pid" ]; then
        kill "$server_pid" 2>/dev/null || true
        wait "$server_pid" 2>/dev/null || true
    fi
    rm -rf "$tmp"
}
trap cleanup EXIT

step "install into a temporary prefix, then move it"
timeout 300 "$cmake" --install "$build" --prefix "$tmp/staged" >"$tmp/install.log" || {
    cat "$tmp/install.log"
    fail "cmake --install"
}
mv "$tmp/staged" "$tmp/prefix"
prefix=$tmp/prefix

step "installed files"
for f in bin/yvidl share/yvidl/idl/orb.idl share/yvidl/idl/omg/orb.idl share/yvidl/idl/omg/PortableServer.idl \
    share/yvidl/idl/omg/Messaging.idl share/yvidl/idl/CosNaming.idl share/man/man1/yvidl.1 \
    include/yvidl/orb.hh include/yvidl/omg/PortableServer.hh include/yvidl/zantic_sys/YV_hash_string.h \
    lib/cmake/yvidl/yvidlConfig.cmake lib/cmake/yvidl/yvidlConfigVersion.cmake lib/cmake/yvidl/yvidlTargets.cmake \
    lib/cmake/yvidl/yvidlGenerate.cmake; do
    [ -e "$prefix/$f" ] || fail "$f is not installed"
done
# Every runtime header of the source tree is installed.
(cd "$source/runtime/include" && find . -type f) | while read -r h; do
    [ -f "$prefix/include/yvidl/$h" ] || fail "runtime header $h is not installed"
done
libdir=$(dirname "$(find "$prefix" -name 'libyv_runtime.so.*.*' | head -n 1)")
[ -n "$libdir" ] || fail "the runtime library is not installed"
soname=$(objdump -p "$libdir"/libyv_runtime.so.*.* | awk '/SONAME/ { print $2 }')
[ "$soname" = libyv_runtime.so.1 ] || fail "runtime soname '$soname'"
[ "$(readlink "$libdir/libyv_runtime.so.1")" = "$(basename "$libdir"/libyv_runtime.so.*.*)" ] ||
    fail "libyv_runtime.so.1 does not lead to the versioned library"

idl_dir=$("$prefix/bin/yvidl" --print-idl-dir)
[ "$idl_dir" = "$(cd "$prefix/share/yvidl/idl" && pwd -P)" ] || fail "--print-idl-dir says '$idl_dir'"
# (Through a file: grep -q would end the pipe before yvidl is done.)
"$prefix/bin/yvidl" --help >"$tmp/help.txt"
grep -q "loaded from $prefix/lib" "$tmp/help.txt" || fail "the moved compiler does not load its own plug-ins"

MANWIDTH=80 man -l "$prefix/share/man/man1/yvidl.1" >"$tmp/man.txt" 2>"$tmp/man.err" || fail "man -l: $(cat "$tmp/man.err")"
[ ! -s "$tmp/man.err" ] || fail "man -l: $(cat "$tmp/man.err")"
for word in -MD -MF -MT --print-idl-dir yvidl_generate share/yvidl/idl; do
    grep -q -e "$word" "$tmp/man.txt" || fail "the manual page does not mention $word"
done

pc=$(PKG_CONFIG_PATH="$libdir/pkgconfig" pkg-config --cflags --libs yvidl-runtime)
pc_yvidl=$(PKG_CONFIG_PATH="$libdir/pkgconfig" pkg-config --variable=yvidl yvidl-runtime)
[ "$(readlink -f "$pc_yvidl")" = "$(readlink -f "$prefix/bin/yvidl")" ] || fail "pkg-config yvidl=$pc_yvidl"
case "$pc" in
*-lyv_runtime*) ;;
*) fail "pkg-config --libs: $pc" ;;
esac
pc_include=$(sed -n 's/^-I\([^ ]*\).*/\1/p' <<<"$pc")
[ "$(readlink -f "$pc_include")" = "$(readlink -f "$prefix/include/yvidl")" ] || fail "pkg-config --cflags: $pc"

step "yvidl_generate() with every option"
options=$tmp/options
timeout 300 "$cmake" -S "$source/tests/install/options" -B "$options" -G Ninja -DCMAKE_MAKE_PROGRAM="$ninja" \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_FLAGS="-Wall -Wextra $flags" >"$tmp/options.log" 2>&1 || {
    cat "$tmp/options.log"
    fail "configuring the options project"
}
timeout 600 "$ninja" -C "$options" -j 2 >>"$tmp/options.log" 2>&1 || {
    cat "$tmp/options.log"
    fail "building the options project"
}
generated=$options/generated
grep -q "class POA_Shop_Till_tie" "$generated/shopS.hh" || fail "TIE: no TIE class"
grep -q "class AMI_TillHandler;" "$generated/shop.hh" || fail "AMI: no reply handler"
grep -q "class Extra;" "$generated/shop.hh" || fail "OPTIONS -DSHOP_EXTRA was not passed on"
grep -A4 "StaticDispatchHashTable::lookup(" "$generated/shopS.cxx" | grep -x " *16" >/dev/null ||
    fail "OPTIONS -poa:-p4 was not passed on"
grep -q "$prefix/share/yvidl/idl/omg/PortableServer.idl" "$generated/shop.d" ||
    grep -q "$(cd "$prefix" && pwd -P)/share/yvidl/idl/omg/PortableServer.idl" "$generated/shop.d" ||
    fail "the dependency file misses the standard IDL files: $(cat "$generated/shop.d")"
for f in shop.hh shop.cxx shopS.hh shopS.cxx money.hh moneyS.cxx; do
    [ -f "$generated/$f" ] || fail "OUT_DIR: no $f"
done

step "configure the consumer with Ninja"
src=$tmp/src
mkdir -p "$src/cmake-consumer"
cp "$source/examples/cmake-consumer/CMakeLists.txt" "$src/cmake-consumer/"
cp "$source"/examples/*.idl "$source"/examples/*.cpp "$src/"
consumer=$tmp/consumer
timeout 300 "$cmake" -S "$src/cmake-consumer" -B "$consumer" -G Ninja -DCMAKE_MAKE_PROGRAM="$ninja" \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS="-Wall -Wextra $flags" -DCMAKE_EXE_LINKER_FLAGS="$flags" >"$tmp/configure.log" || {
    cat "$tmp/configure.log"
    fail "configuring the consumer"
}

# Runs ninja in the consumer's build tree; the commands it ran go to $1.
build_consumer() {
    timeout 600 "$ninja" -C "$consumer" -j 2 -v >"$1" 2>&1 || {
        cat "$1"
        fail "building the consumer"
    }
}
# The number of lines of the log $1 that match $2.
count() { grep -c -e "$2" "$1" || true; }

step "build"
build_consumer "$tmp/build1.log"
[ "$(count "$tmp/build1.log" 'bin/yvidl.* -MD .*bank\.idl')" -eq 2 ] || fail "yvidl did not run twice on bank.idl"

step "run the bank server and the client"
ref=$tmp/branch.ior
timeout 120 "$consumer/bank_server" -ORBListenEndpoints iiop://127.0.0.1:0 "$ref" >"$tmp/server.log" 2>&1 &
server_pid=$!
for _ in $(seq 1 100); do
    [ -s "$ref" ] && break
    kill -0 "$server_pid" 2>/dev/null || fail "bank_server ended early: $(cat "$tmp/server.log")"
    sleep 0.1
done
[ -s "$ref" ] || fail "bank_server wrote no reference"
timeout 60 "$consumer/bank_client" "$ref" >"$tmp/client.log" 2>&1 || {
    cat "$tmp/client.log"
    fail "bank_client"
}
grep -q "withdrawal of .* refused" "$tmp/client.log" || fail "no refused withdrawal: $(cat "$tmp/client.log")"
grep -q "SAV-2 refuses requests now that it is closed" "$tmp/client.log" || fail "client: $(cat "$tmp/client.log")"
kill -TERM "$server_pid"
status=0
wait "$server_pid" || status=$?
server_pid=
[ "$status" -eq 0 ] || fail "bank_server ended with status $status: $(cat "$tmp/server.log")"
echo "bank_client: $(wc -l <"$tmp/client.log") lines, server closed"

step "touch orb.idl, which the bank IDL includes: exactly its readers are regenerated"
# shop.idl reads orb.idl, money.idl does not.
sleep 1
touch "$prefix/share/yvidl/idl/orb.idl"
build_consumer "$tmp/build2.log"
[ "$(count "$tmp/build2.log" 'bin/yvidl.* -MD ')" -eq 2 ] || fail "not exactly two yvidl steps: $(cat "$tmp/build2.log")"
[ "$(count "$tmp/build2.log" 'bin/yvidl.* -MD .*bank\.idl')" -eq 2 ] || fail "bank.idl not regenerated"
timeout 600 "$ninja" -C "$options" -j 2 -v >"$tmp/options2.log" 2>&1 || {
    cat "$tmp/options2.log"
    fail "rebuilding the options project"
}
[ "$(count "$tmp/options2.log" 'bin/yvidl.* -MD ')" -eq 1 ] || fail "options: not one yvidl step: $(cat "$tmp/options2.log")"
[ "$(count "$tmp/options2.log" 'bin/yvidl.* -MD .*shop\.idl')" -eq 1 ] || fail "options: shop.idl not regenerated"
[ "$(count "$tmp/options2.log" 'money\.idl\|-c .*money')" -eq 0 ] || fail "options: money.idl's outputs were rebuilt"

step "build again: nothing to do"
build_consumer "$tmp/build3.log"
grep -q "ninja: no work to do" "$tmp/build3.log" || fail "a build with nothing changed did work: $(cat "$tmp/build3.log")"
timeout 60 "$ninja" -C "$options" >"$tmp/options3.log" 2>&1
grep -q "ninja: no work to do" "$tmp/options3.log" || fail "options: a build with nothing changed did work"
echo "== the installed tree builds a user's project"
