# Shell functions of the interoperability test runners (sourced).
#
# Every process runs under `timeout`; servers and omniNames are stopped by
# their PID when the test ends, whatever way it ends.

# Seconds a server may live, a client may run, a server may take to write
# its reference.
: "${INTEROP_SERVER_LIMIT:=300}"
: "${INTEROP_CLIENT_LIMIT:=240}"
: "${INTEROP_START_LIMIT:=30}"

skip() {
    echo "skipped: $*"
    exit 77
}

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

pids=()

cleanup() {
    local pid
    for pid in "${pids[@]}"; do
        kill -TERM "$pid" 2>/dev/null
    done
    for pid in "${pids[@]}"; do
        wait "$pid" 2>/dev/null
    done
    [ -n "${work:-}" ] && [ -z "${INTEROP_KEEP:-}" ] && rm -rf "$work"
}

make_work_dir() {
    work=$(mktemp -d "${TMPDIR:-/tmp}/yv-interop.XXXXXX")
    trap cleanup EXIT
    # omniORB reads no configuration file of the machine's.
    : >"$work/omniORB.cfg"
    export OMNIORB_CONFIG="$work/omniORB.cfg"
}

# The ORB options that make a program of `kind` listen on 127.0.0.1 only, on
# a port the system chooses, and bound the time a call may take.
orb_args() {
    case $1 in
    yv) echo "-ORBListenEndpoints iiop://127.0.0.1:0" ;;
    omni) echo "-ORBendPoint giop:tcp:127.0.0.1: -ORBclientCallTimeOutPeriod 60000" ;;
    *) fail "unknown ORB kind $1" ;;
    esac
}

# orb_env <kind>: the environment a program of `kind` runs in. omniORB's
# programs run without the leak check of a sanitizer build: what it would
# report is omniORB's, and its stop-the-world pass at exit has been seen
# spinning for minutes.
orb_env() {
    case $1 in
    omni) echo "ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0" ;;
    *) ;;
    esac
}

# wait_for_file <file> <pid>: true once the file exists; false when the
# process died first or the time ran out.
wait_for_file() {
    local i
    for ((i = 0; i < INTEROP_START_LIMIT * 20; ++i)); do
        [ -s "$1" ] && return 0
        kill -0 "$2" 2>/dev/null || return 1
        sleep 0.05
    done
    return 1
}

# start_naming_service: omniNames on 127.0.0.1, on a port the system
# chooses, with its own data directory. Sets naming_port and naming_pid.
start_naming_service() {
    mkdir -p "$work/names"
    timeout -k 10 "$INTEROP_SERVER_LIMIT" omniNames -start -always -datadir "$work/names" \
        -ORBendPoint giop:tcp:127.0.0.1: >"$work/names.log" 2>&1 &
    naming_pid=$!
    pids+=("$naming_pid")
    local i ior=
    for ((i = 0; i < INTEROP_START_LIMIT * 20; ++i)); do
        ior=$(grep -o 'Root context is IOR:[0-9a-f]*' "$work/names.log" | sed 's/.* //')
        [ -n "$ior" ] && break
        kill -0 "$naming_pid" 2>/dev/null || break
        sleep 0.05
    done
    [ -n "$ior" ] || { cat "$work/names.log" >&2; fail "omniNames did not start"; }
    # The port the system gave it, read from its root context's profile.
    naming_port=$(catior "$ior" | sed -n 's/^ *[0-9]*\. IIOP [0-9.]* 127\.0\.0\.1 \([0-9]*\) .*/\1/p' | head -1)
    [ -n "$naming_port" ] || fail "no port in omniNames' reference: $(catior "$ior")"
}

# start_server <kind> <program> [arguments]: starts the server in the
# background writing its reference to $work/server.ior; sets server_pid.
start_server() {
    local kind=$1 program=$2
    shift 2
    # shellcheck disable=SC2046
    env $(orb_env "$kind") timeout -k 10 "$INTEROP_SERVER_LIMIT" "$program" $(orb_args "$kind") --ior-file "$work/server.ior" "$@" \
        >"$work/server.log" 2>&1 &
    server_pid=$!
    pids+=("$server_pid")
    if ! wait_for_file "$work/server.ior" "$server_pid"; then
        cat "$work/server.log" >&2
        fail "the server did not write its reference"
    fi
}

# run_client <kind> <program> [arguments]: runs the client in the
# foreground; its status is the function's.
run_client() {
    local kind=$1 program=$2
    shift 2
    # shellcheck disable=SC2046
    env $(orb_env "$kind") timeout -k 10 "$INTEROP_CLIENT_LIMIT" "$program" $(orb_args "$kind") "$@"
    local status=$?
    [ $status -eq 124 ] && echo "FAIL: the client ran out of time" >&2
    return $status
}

# stop_server: SIGTERM to the server; false when it does not exit with 0
# (a crash on the way out, a sanitizer's report, no exit in time).
stop_server() {
    kill -TERM "$server_pid" 2>/dev/null
    wait "$server_pid"
    local status=$?
    if [ $status -ne 0 ]; then
        echo "FAIL: the server exited with status $status; its output:" >&2
        cat "$work/server.log" >&2
        return 1
    fi
    return 0
}
