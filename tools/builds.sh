# SPDX-License-Identifier: MIT
# Builds in the background, one after the other: most tests leave a processor idle.

# How each build ended, and where those that end are told of.
declare -A BUILT
BUILDS=

# start_builds PRESET...: build them in turn
start_builds() {
    local preset ended=out/log/builds
    rm -f "$ended"
    mkfifo "$ended"
    for preset in "$@"; do
        build_quietly "$preset" && echo "$preset 0" >&4 || echo "$preset 1" >&4
    done 4>"$ended" 9>&- &
    exec {BUILDS}<"$ended"
}

# await_build PRESET: whether the build, one of those that were started, succeeds
await_build() {
    local preset status
    while [ -z "${BUILT[$1]:-}" ]; do
        read -r -u "$BUILDS" preset status || return
        BUILT[$preset]=$status
    done
    return "${BUILT[$1]}"
}
