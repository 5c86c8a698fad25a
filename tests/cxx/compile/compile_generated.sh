#!/bin/bash
# Compiles the output of `yvidl -base -poa` for a whole set of IDL files in
# one configuration of the generators' switches:
#
#   compile_generated.sh <config> <yvidl> <runtime include dir> <source dir> <work dir>
#
# <config> is one of plain, tie, ami, raises, rtti. The set is every file of
# the installed IDL corpus that the front end accepts (the files its corpus
# test lists as rejected are left out), every IDL file under examples/, and
# the IDL inputs of the tests (also those named *.pidl, which other IDL
# includes). Each group of files is generated into a
# directory of its own that mirrors the group's include directories, so that
# the include lines of generated headers find the headers of included files;
# then every generated .cxx file is compiled with
#   g++ -std=c++17 -Wall -Wextra -Werror -fsyntax-only
# two at a time, and every one must compile. A file whose non-local
# interfaces use native types in dispatched signatures must fail with the
# skeleton generator's error for natives instead, and is listed below. The
# files included by a file that switches TIE on in its POACxx block are
# generated with TIE as well (see switches_tie_on). Test inputs that the
# front end rejects (inputs of error tests) are left out. Exits 77
# (skipped) when the corpus is not installed.
#
# <config> projects generates with -base -poa the IDL that other projects
# ship in Debian packages instead: the services of the Tcl ORB's examples
# (tcl-combat) and the data types of the examples of a DDS implementation
# (libfastrtps-doc). Every file must be accepted and compile, except the DDS
# files that use annotations (@Key), which IDL without them does not know.
set -u

config=$1
yvidl=$2
runtime_include=$3
source_dir=$4
work=$5/$config

corpus=/usr/share/idl/omniORB
combat=/usr/share/doc/tcl-combat/examples
fastdds=/usr/share/doc/libfastrtps-dev/examples
if [ "$config" = projects ]; then
    required=("$combat" "$fastdds")
else
    required=("$corpus")
fi
for d in "${required[@]}"; do
    if [ ! -d "$d" ]; then
        echo "SKIP: $d is not installed"
        exit 77
    fi
done
if [ ! -x "$yvidl" ]; then
    echo "FAIL: the compiler $yvidl is not built"
    exit 1
fi

case $config in
plain) options=(-base -poa) ;;
tie) options=(-base -poa:-xTIE) ;;
ami) options=(-base:-xAMICallbacks -poa:-xAMICallbacks) ;;
raises) options=(-base -poa:-xEnforceRaises) ;;
rtti) options=(-base -poa:-xRTTI) ;;
projects) options=(-base -poa) ;;
*) echo "FAIL: unknown configuration $config"; exit 1 ;;
esac

# Files whose dispatched signatures use native types: the skeleton
# generator must refuse them (paths relative to their group's root).
natives_expected=(
    "cxx/natives.idl"
)

# With TIE on, a TIE class derives from the TIE classes of its interface's
# bases, so the files that declare those bases must be generated with TIE
# too. An IDL file whose POACxx block switches TIE on for itself
# (`@switch -xTIE`, as the front end's test input tree/includes.idl does)
# is built the way its user has to build it: every file it includes is
# generated with -xTIE as well. That only adds classes to the included
# files' skeletons, which the other files of the group compile against
# just as well; and it keeps such a file in the test, so that a TIE class
# is compiled against the TIE class of a base from another file.
switches_tie_on() {
    awk '/^%\{POACxx/ { block = 1; next }
         /^%\}/ { block = 0; next }
         block && /^@switch/ && / -xTIE/ { found = 1 }
         END { exit !found }' "$1"
}

# The files the front end rejects, as <group>/<path>: the corpus files its
# corpus test lists, and the DDS files written with annotations.
rejected=$(grep -o '{"[^"]*\.idl"' "$source_dir/tests/frontend/Corpus_test.cpp" | sed 's/^{"/corpus\//; s/"$//')
if [ -z "$rejected" ]; then
    echo "FAIL: no list of rejected corpus files in tests/frontend/Corpus_test.cpp"
    exit 1
fi
rejected+=$'\n'$(printf 'fastdds/dds/%s\n' Configurability/sample.idl DeadlineQoSExample/deadlinepayload.idl \
    HistoryKind/sample.idl Keys/sample.idl LateJoiners/sample.idl SampleConfig_Controller/sample.idl \
    SampleConfig_Events/sample.idl SampleConfig_Multimedia/sample.idl)

rm -rf "$work"
mkdir -p "$work"
failures=0
compiled_list="$work/compile.list"
: > "$compiled_list"

# generate <group> <root> <must-parse:0|1> <include dir>...
# Generates every IDL file under <root> into $work/<group>/<its directory
# relative to <root>>.
generate() {
    local group=$1 root=$2 must_parse=$3
    shift 3
    local incs=()
    local d
    for d in "$@"; do incs+=("-I$d"); done
    local f rel out err status
    # The files that must be generated with -xTIE (see switches_tie_on).
    local tie_files=""
    if [ "$config" != tie ]; then
        while IFS= read -r f; do
            if switches_tie_on "$f"; then
                tie_files+=$("$yvidl" "${incs[@]}" -E "$f" 2>/dev/null |
                    sed -n 's/^# [0-9]* "\(.*\)" 1$/\1/p' | grep -vx "$f")$'\n'
            fi
        done < <(find "$root" \( -name '*.idl' -o -name '*.pidl' \) | LC_ALL=C sort)
    fi
    while IFS= read -r f; do
        rel=${f#"$root"/}
        if grep -qx "$group/$rel" <<< "$rejected"; then
            continue
        fi
        out="$work/$group/$(dirname "$rel")"
        mkdir -p "$out"
        local file_options=("${options[@]}")
        if grep -qxF "$f" <<< "$tie_files"; then
            file_options=()
            local o
            for o in "${options[@]}"; do
                case $o in
                -poa) file_options+=("-poa:-xTIE") ;;
                -poa:*) file_options+=("$o:-xTIE") ;;
                *) file_options+=("$o") ;;
                esac
            done
        fi
        err=$(cd "$out" && "$yvidl" "${incs[@]}" "${file_options[@]}" "$f" 2>&1)
        status=$?
        local native=0 n
        for n in "${natives_expected[@]}"; do
            [ "$group/$rel" = "$n" ] && native=1
        done
        if [ $native = 1 ]; then
            if grep -q "POA Error. Cannot generate a POA dispatch method that contains a native type." <<< "$err"; then
                echo "native: $group/$rel refused as expected"
                # The client side is complete; only the skeleton is missing.
                printf '%s\n' "$out/$(basename "${rel%.idl}").cxx" >> "$compiled_list"
            else
                echo "FAIL: $group/$rel: expected the error for native types"
                failures=$((failures + 1))
            fi
            continue
        fi
        if [ $status != 0 ]; then
            if [ "$must_parse" = 0 ] && ! grep -q 'POA Error\|C++ Error' <<< "$err"; then
                echo "skipped: $group/$rel (rejected by the front end)"
                continue
            fi
            echo "FAIL: $group/$rel: yvidl ${file_options[*]} exited $status"
            printf '%s\n' "$err" | head -5
            failures=$((failures + 1))
            continue
        fi
        local base=${rel%.*}
        for g in "$out/$(basename "$base").cxx" "$out/$(basename "$base")S.cxx"; do
            [ -f "$g" ] && printf '%s\n' "$g" >> "$compiled_list"
        done
    done < <(find "$root" \( -name '*.idl' -o -name '*.pidl' \) | LC_ALL=C sort)
    for d in "$@"; do
        printf -- '-I%s\n' "$work/$group/${d#"$root"}" >> "$work/$group.includes"
    done
}

if [ "$config" = projects ]; then
    generate combat "$combat" 1 "$combat"
    generate fastdds "$fastdds" 1 "$fastdds"
else
    generate corpus "$corpus" 1 "$corpus" "$corpus/COS"
    generate examples "$source_dir/examples" 1 "$source_dir/examples"
    # Paths relative to the source tree, so that a checkout under a directory
    # named "data" does not end the match early.
    for data in $(cd "$source_dir" && find tests -name '*.idl' -printf '%h\n' | sed 's#/data/.*#/data#' | LC_ALL=C sort -u); do
        data=$source_dir/$data
        layer=$(basename "$(dirname "$data")")
        dirs=("$data")
        for sub in $(find "$data" -type d -name inc | LC_ALL=C sort); do
            dirs+=("$sub" "$(dirname "$sub")")
        done
        generate "$layer" "$data" 0 "${dirs[@]}"
    done
fi

# Every generated file includes <zantic_sys/yvcxx.h> before any generated
# declaration, so the test parses it once, as a precompiled header that is
# included first: that halves the time of each compilation.
pch_flags=()
echo '#include <zantic_sys/yvcxx.h>' > "$work/yv_runtime.h"
if g++ -std=c++17 -Wall -Wextra -Werror -I"$runtime_include" -x c++-header "$work/yv_runtime.h" \
        -o "$work/yv_runtime.h.gch" 2> "$work/pch.log"; then
    pch_flags=(-include "$work/yv_runtime.h" -Winvalid-pch)
else
    echo "note: no precompiled runtime header ($(head -1 "$work/pch.log"))"
fi
pch_text="${pch_flags[*]}"

# compile_one <file>: compiles one generated file with the include
# directories of its group; prints FAIL and the first errors on failure.
compile_one() {
    local f=$1 group rest
    rest=${f#"$work"/}
    rest=${rest//\/.\//\/}
    group=${rest%%/*}
    local incs
    mapfile -t incs < "$work/$group.includes"
    local pch=()
    [ -n "$pch_text" ] && read -r -a pch <<< "$pch_text"
    if ! out=$(g++ -std=c++17 -Wall -Wextra -Werror -fsyntax-only "${pch[@]}" "${incs[@]}" -I"$runtime_include" "$f" 2>&1); then
        echo "FAIL: $rest does not compile"
        printf '%s\n' "$out" | grep -E 'error|warning' | head -5
        return 1
    fi
}
export -f compile_one
export work runtime_include pch_text

total=$(wc -l < "$compiled_list")
compile_failures=$(xargs -P2 -I{} bash -c 'compile_one "$1" || echo COMPILE_FAILED' _ {} < "$compiled_list" | tee "$work/compile.log" | grep -c COMPILE_FAILED)
grep -v COMPILE_FAILED "$work/compile.log"
failures=$((failures + compile_failures))

echo "$config: $total generated files compiled, $failures failures"
[ $failures = 0 ]
