# SPDX-License-Identifier: MIT
# Small helpers of ./quorvane. Everything runs in the project's root folder.

say() { printf '==> %s\n' "$*"; }

die() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# Whether as_root works; asks for a password only where a person can answer.
can_be_root() {
    [ "$(id -u)" = 0 ] || sudo -n true 2>/dev/null || { [ -t 0 ] && sudo -v; }
}

# lock_project SECONDS: one command at a time in this folder, waiting so long for another to end.
# Background helpers close descriptor 9.
lock_project() {
    mkdir -p out/log
    exec 9>out/.lock
    flock -w "$1" 9 || die "another ./quorvane is at work in this folder"
}

# logged NAME COMMAND...: run it with its output in out/log/NAME.log, the end of it shown on failure.
logged() {
    local log=out/log/$1.log
    "${@:2}" >"$log" 2>&1 </dev/null && return
    tail -n 40 "$log"
    printf 'error: %s failed; all of its output is in %s\n' "$1" "$log"
    return 1
}

# build_quietly PRESET [TARGET...]: configure and build, the output in out/log.
build_quietly() {
    say "Building $1"
    [ $# -gt 1 ] || set -- "$1" all
    logged "configure-$1" cmake --preset "$1" &&
        logged "build-$1" cmake --build --preset "$1" --target "${@:2}" -- --quiet
}
