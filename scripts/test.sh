#!/usr/bin/env bash
# Builds everything and runs every test, twice: with the default preset
# (release build with debug information, build/) and with the asan preset
# (AddressSanitizer and UndefinedBehaviorSanitizer, build-asan/).
# Installs what a fresh Debian machine lacks first. Exits non-zero on any
# failure.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

JOBS=2

# Debian packages the build and the tests need; the IDL files of
# omniorb-idl are the input of the front end's corpus test; tcl-combat and
# libfastrtps-doc ship the IDL of other projects that the compile test of
# generated code takes (their examples); omniORB (library,
# IDL compiler, tools, naming service) is the peer of the interoperability
# tests; Ninja, man and pkg-config serve the test of the installed tree
# (a user's CMake project built with Ninja, the manual page, the .pc file);
# the compiler allocates with jemalloc when it is there (docs/building.md).
PACKAGES=(cmake g++ make libgtest-dev omniorb-idl tcl-combat libfastrtps-doc libomniorb4-dev omniidl omniorb
    omniorb-nameserver ninja-build man-db pkgconf libjemalloc-dev)

install_missing_packages() {
    local missing=()
    local p
    for p in "${PACKAGES[@]}"; do
        if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
            missing+=("$p")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return 0
    fi
    echo "== installing ${missing[*]}"
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        sudo=(sudo)
    fi
    "${sudo[@]}" apt-get update
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
}

run_preset() {
    local preset=$1
    echo "== configure ($preset)"
    cmake --preset "$preset"
    echo "== build ($preset)"
    cmake --build --preset "$preset" -j "$JOBS"
    echo "== test ($preset)"
    ctest --preset "$preset" -j "$JOBS"
}

if command -v dpkg-query >/dev/null 2>&1 && command -v apt-get >/dev/null 2>&1; then
    install_missing_packages
fi

run_preset default
run_preset asan
echo "== all tests passed"
