# SPDX-License-Identifier: MIT
# The test suites, and the count of their results.

# Every suite there is. The static checks of the Windows half take many minutes more: ./quorvane lint
# runs them, too.
SUITES="format rooms tidy asan native x64 x86 fuzz products"
PASSED=0 FAILED=0 SKIPPED=0
FAILURES=()
declare -A CASES

# What only "all" runs: the optimized native build, whose cases the sanitized one has as well, the
# static checks of sources that did not change, and windows on x86, which are those of x64.
DAILY_SUITES="format rooms changed asan x64 x86 fuzz products"
WINDOW_PROGRAMS="window_tests editor_window_tests form_tests"
DAILY=

# run_tests [all | SUITE [PROGRAM [FILTER]]]: the daily suites, all of them or one, then the totals
run_tests() {
    local suites=$DAILY_SUITES suite
    case "${1:-}" in
        "") ;;
        all) suites=$SUITES ;;
        *) suites=$1 ;;
    esac
    for suite in $suites; do
        case " $SUITES changed " in *" $suite "*) ;; *) die "no suite '$suite'; there are: $SUITES" ;; esac
    done
    # shellcheck disable=SC2086  # a list of groups
    need $(for suite in $suites; do packages_of_suite "$suite"; done)
    # Tests know the texts and numbers of this locale; those of a comma set one themselves.
    export LC_ALL=C.UTF-8
    [ $# -gt 0 ] || DAILY=yes
    for suite in $suites; do
        run_suite "$suite" "${2:-*}" "${3:-*}" || true
    done
    print_totals
}

# The groups of packages that a suite needs; a suite alone installs no more.
packages_of_suite() {
    case $1 in
        format) echo format ;;
        rooms) echo rooms ;;
        tidy | changed) echo build clang tidy ;;
        asan | fuzz) echo build clang ;;
        native) echo build ;;
        x64) echo build windows64 wine ;;
        x86) echo build windows32 wine ;;
        products) echo build windows64 windows32 ;;
    esac
}

run_suite() {
    case $1 in
        format) check_format ;;
        rooms) check_rooms ;;
        tidy) check_tidy lint ;;
        changed) check_changed ;;
        asan) run_programs core-asan "$@" ;;
        native) run_programs native "$@" ;;
        x64) run_programs mingw64 "$@" ;;
        x86) run_programs mingw32 "$@" ;;
        fuzz) run_fuzzers 5 ;;
        products) check_products ;;
    esac
}

# count PASSED FAILED SKIPPED
count() {
    PASSED=$((PASSED + $1)) FAILED=$((FAILED + $2)) SKIPPED=$((SKIPPED + $3))
}

# failure NAME REPEAT: note a failed case and the command that repeats it
failure() {
    FAILURES+=("$1"$'\n'"       repeat: $2")
}

# check NAME REPEAT COMMAND...: one case that passes when the command does
check() {
    if "${@:3}"; then count 1 0 0; else count 0 1 0 && failure "$1" "$2"; fi
}

# build_or_fail PRESET [TARGET...]: a build that fails counts as a failed case.
build_or_fail() {
    build_quietly "$@" && return
    count 0 1 0
    failure "build of $1" "cmake --preset $1 && cmake --build --preset $1"
    return 1
}

print_totals() {
    local failure
    for failure in "${FAILURES[@]}"; do
        printf 'FAILED %s\n' "$failure"
    done
    printf '%d passed, %d failed, %d skipped\n' "$PASSED" "$FAILED" "$SKIPPED"
    [ "$FAILED" -eq 0 ] && [ "$PASSED" -gt 0 ]
}

# The formatting of all our sources, build trees left out.
check_format() {
    local sources
    say "Checking the formatting"
    mapfile -t sources < <(find . -path ./out -prune -o \( -name '*.cpp' -o -name '*.h' \) -print)
    check formatting "./quorvane test format" logged format \
        clang-format --dry-run -Werror "${sources[@]}"
}

# The includes of all rooms against the tables that describe them.
check_rooms() {
    say "Checking the rooms"
    check rooms "./quorvane test rooms" logged rooms python3 tools/check_rooms.py
}

check_tidy() {
    check "static checks" "cmake --build --preset $1" build_quietly "$1"
}

# The static checks of the sources that differ from the branch that this one follows, committed or
# not; without such a branch, from the commit before.
check_changed() {
    local base sources
    base=$(git merge-base HEAD '@{upstream}' 2>/dev/null || git rev-parse HEAD~1 2>/dev/null) || base=HEAD
    mapfile -t sources < <(git diff --name-only --diff-filter=d "$base" -- '*.cpp' '*.h' | sed 's/\.h$/.cpp/' | sort -u)
    logged configure-lint cmake --preset lint || return
    # Sources that the native build does not compile are those of the Windows half.
    mapfile -t sources < <(for source in "${sources[@]}"; do
        grep -qF "\"file\": \"$PWD/$source\"" out/build/lint/compile_commands.json && echo "$source"
    done)
    if [ ${#sources[@]} -eq 0 ]; then
        say "Static checks: no portable source differs from $(git rev-parse --short "$base")"
        return
    fi
    say "Checking ${#sources[@]} changed sources"
    check "static checks of what changed" "./quorvane test changed" \
        logged changed clang-tidy --quiet -p out/build/lint "${sources[@]}"
}

# is_left_out SUITE PROGRAM: whether daily work goes without it
is_left_out() {
    [ -n "$DAILY" ] && [ "$1" = x86 ] && [[ " $WINDOW_PROGRAMS " == *" $2 "* ]]
}

# run_programs PRESET SUITE PROGRAM FILTER: build, then run the GoogleTest programs of the preset.
# Of a program that is named, nothing but itself and what it runs is built.
run_programs() {
    local preset=$1 suite=$2 pattern=$3 filter=$4 program run=() targets=()
    [[ $pattern == *[*?[]* ]] || targets=("$pattern")
    [ -z "$DAILY" ] || [ "$suite" != x86 ] || targets=(tests_without_windows)
    build_or_fail "$preset" "${targets[@]}" || return
    case $suite in
        x64 | x86)
            wine_start "$suite" || { skip_suite "$suite"; return; }
            run=(in_wine "$suite" 600 wine)
            ;;
    esac
    for program in out/build/"$preset"/tests/*/*_tests{,.exe}; do
        # shellcheck disable=SC2053
        [[ -x $program && $(basename "$program" .exe) == $pattern ]] || continue
        ! is_left_out "$suite" "$(basename "$program" .exe)" || continue
        run_gtest "$suite" "$(basename "$program" .exe)" "$filter" "${run[@]}" "$program"
    done
}

# A 32-bit suite that cannot run here counts as skipped, with as many cases as its 64-bit twin has.
skip_suite() {
    if [ "$1" = x86 ]; then
        say "Left out: the tests on x86, for the reason above; ./quorvane test x86 runs them"
        count 0 0 "${CASES[x64]:-1}"
    else
        count 0 1 0
        failure "Wine did not start" "./quorvane test $1"
    fi
}

# run_gtest SUITE NAME FILTER COMMAND...: run a GoogleTest program and count its cases
run_gtest() {
    local suite=$1 name=$2 filter=$3 log=out/log/$1-$2.log
    local status=0 start=$SECONDS passed failed skipped line
    "${@:4}" --gtest_color=no --gtest_filter="$filter" >"$log" 2>&1 || status=$?
    while IFS= read -r line; do
        case $line in
            "FAILED "*) failure "$suite $name ${line#* }" "./quorvane test $suite $name '${line#* }'" ;;
            "TOTALS "*) read -r _ passed failed skipped <<<"$line" ;;
            *) printf '%s\n' "$line" ;;
        esac
    done < <(awk -f tools/gtest-results.awk "$log")
    if [ "$status" -ne 0 ] && [ "$failed" -eq 0 ]; then
        tail -n 30 "$log"
        failed=1
        failure "$suite $name: exit status $status with no failed test" "./quorvane test $suite $name"
    fi
    count "$passed" "$failed" "$skipped"
    CASES[$suite]=$((${CASES[$suite]:-0} + passed + failed + skipped))
    say "$suite $name: $passed passed, $failed failed, $skipped skipped in $((SECONDS - start)) s"
}

# run_fuzzers SECONDS: every fuzzer that long; each is one case
run_fuzzers() {
    local program name
    build_or_fail fuzz fuzzers || return
    for program in out/build/fuzz/fuzzers/*; do
        name=${program##*/}
        say "Running $name for $1 s"
        mkdir -p "out/fuzz/$name"
        check "$name" "$program out/fuzz/$name.*" logged "$name" "$program" \
            -max_total_time="$1" -timeout=10 -rss_limit_mb=2048 \
            -artifact_prefix="out/fuzz/$name." "out/fuzz/$name" "tests/fuzz/corpus/$name"
    done
}

# The products need system DLLs and nothing else.
check_products() {
    local product
    build_or_fail mingw64 products && build_or_fail mingw32 products || return
    say "Checking what the products import"
    for product in out/x64/*.ocx out/x64/*.exe out/x86/*.ocx out/x86/*.exe; do
        check "imports of $product" "./quorvane test products" only_system_imports "$product"
        check "error information of $product" "./quorvane test products" documented_imports "$product"
    done
}

SYSTEM_DLLS='advapi32|comctl32|comdlg32|gdi32|kernel32|msvcrt|ole32|oleaut32|shell32|shlwapi|user32'

only_system_imports() {
    local imports foreign
    imports=$(x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/^\s*DLL Name: //p')
    foreign=$(grep -viE "^($SYSTEM_DLLS)\.dll$" <<<"$imports") || return 0
    printf '%s imports: %s\n' "$1" "${foreign:-nothing}"
    return 1
}

# The functions of error information are documented to be in oleaut32; that ole32 has them, too, is
# not so everywhere.
documented_imports() {
    x86_64-w64-mingw32-objdump -p "$1" | awk -v product="$1" '
        /DLL Name:/ { dll = tolower($3) }
        /ErrorInfo$/ && dll != "oleaut32.dll" { print product " imports " $NF " from " dll; wrong = 1 }
        END { exit wrong }'
}
