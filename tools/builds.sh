# SPDX-License-Identifier: MIT
# Builds in the background, one after the other: tests of the core leave a processor idle.

# How the builds that have ended ended, by preset; the pipe that tells of each; the process group.
declare -A BUILT
BUILDS='' BUILDER=''

# start_builds PRESET...: build them in turn. What goes on when the script exits is stopped.
start_builds() {
    local pipe=out/log/builds
    rm -f "$pipe"
    mkfifo "$pipe"
    set -m # a process group of its own
    build_all "$@" 4>"$pipe" &
    set +m
    BUILDER=$!
    at_exit stop_builds
    exec {BUILDS}<"$pipe"
    rm "$pipe"
}

build_all() {
    local preset started=
    for preset in "$@"; do
        case " $started " in *" $preset "*) continue ;; esac
        started+=" $preset"
        if build_quietly "$preset"; then echo "$preset 0" >&4; else echo "$preset 1" >&4; fi
    done
}

stop_builds() { kill -- "-$BUILDER" 2>/dev/null || true; }

# await_build PRESET: whether the build, one of those that were started, succeeds
await_build() {
    local preset status
    while [ -z "${BUILT[$1]:-}" ]; do
        read -r -u "$BUILDS" preset status || return
        BUILT[$preset]=$status
    done
    return "${BUILT[$1]}"
}

# await_builds: until all have ended
await_builds() {
    local preset status
    while read -r -u "$BUILDS" preset status; do
        BUILT[$preset]=$status
    done
}
