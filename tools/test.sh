# SPDX-License-Identifier: MIT
# The test suites, and the count of their results.

SUITES="format tidy core-asan core-native core-x64 core-x86 com-x64 com-x86 fuzz products"
PASSED=0 FAILED=0 SKIPPED=0
FAILURES=()
declare -A CASES

# run_tests [SUITE [FILTER]]: all suites or one, then the totals
run_tests() {
    local suite
    case " $SUITES " in *" ${1:-format} "*) ;; *) die "no suite '$1'; there are: $SUITES" ;; esac
    need build windows wine check
    for suite in ${1:-$SUITES}; do
        run_suite "$suite" "${2:-*}" || true
    done
    print_totals
}

run_suite() {
    case $1 in
        format) check_format ;;
        tidy) check_tidy ;;
        fuzz) run_fuzzers 5 ;;
        products) check_products ;;
        core-asan) test_native "$1" core-asan "$2" ;;
        core-native) test_native "$1" native "$2" ;;
        *-x64) test_in_wine "$1" mingw64 x64 "$2" ;;
        *-x86) test_in_wine "$1" mingw32 x86 "$2" ;;
    esac
}

# count PASSED FAILED SKIPPED
count() {
    PASSED=$((PASSED + $1)) FAILED=$((FAILED + $2)) SKIPPED=$((SKIPPED + $3))
}

# fail NAME REPEAT: one failed case, and the command that repeats it
fail() {
    count 0 1 0
    FAILURES+=("$1"$'\n'"       repeat: $2")
}

# check NAME REPEAT COMMAND...: one case that passes when the command does
check() {
    if "${@:3}"; then count 1 0 0; else fail "$1" "$2"; fi
}

build_or_fail() {
    build_quietly "$1" || { fail "build of $1" "cmake --build --preset $1"; return 1; }
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
    say "Checking the formatting"
    local sources
    mapfile -t sources < <(find . -path ./out -prune -o \( -name '*.cpp' -o -name '*.h' \) -print)
    check formatting "./quorvane lint" logged format clang-format --dry-run -Werror "${sources[@]}"
}

check_tidy() {
    check "static checks" "./quorvane lint" build_quietly lint
}

test_native() {
    build_or_fail "$2" && run_gtest "$1" "$3" "out/build/$2/tests/core/core_tests"
}

# A 32-bit suite that cannot run here counts as skipped, with as many cases as its 64-bit twin has.
test_in_wine() {
    local suite=$1 preset=$2 arch=$3 filter=$4 kind=${1%-*}
    build_or_fail "$preset" || return
    if wine_start "$arch"; then
        run_gtest "$suite" "$filter" \
            in_wine "$arch" 600 wine "out/build/$preset/tests/$kind/${kind}_tests.exe"
    elif [ "$arch" = x86 ]; then
        say "Left out: $suite; to run it, remove the obstacle above and call ./quorvane test $suite"
        count 0 0 "${CASES[$kind-x64]:-1}"
    else
        fail "$suite: Wine did not start" "./quorvane test $suite"
    fi
}

# run_gtest SUITE FILTER COMMAND...: run a GoogleTest program and count its cases
run_gtest() {
    local suite=$1 filter=$2 log=out/log/$1.log status=0 start=$SECONDS passed failed skipped line
    shift 2
    "$@" --gtest_color=no --gtest_filter="$filter" >"$log" 2>&1 || status=$?
    while IFS= read -r line; do
        case $line in
            FAILED\ *) FAILURES+=("$suite ${line#FAILED }"$'\n'"       repeat: ./quorvane test $suite '${line#FAILED }'") ;;
            TOTALS\ *) read -r _ passed failed skipped <<<"$line" ;;
            *) printf '%s\n' "$line" ;;
        esac
    done < <(awk -f tools/gtest-results.awk "$log")
    count "$passed" "$failed" "$skipped"
    CASES[$suite]=$((passed + failed + skipped))
    if [ "$status" -ne 0 ] && [ "$failed" -eq 0 ]; then
        tail -n 30 "$log"
        fail "$suite: exit status $status although no test failed" "./quorvane test $suite"
    fi
    say "$suite: $passed passed, $failed failed, $skipped skipped in $((SECONDS - start)) s"
}

# run_fuzzers SECONDS: every fuzzer that long; each is one case
run_fuzzers() {
    local program name
    build_or_fail fuzz || return
    for program in out/build/fuzz/fuzzers/*; do
        name=${program##*/}
        say "Running $name for $1 s"
        mkdir -p "out/fuzz/$name"
        check "$name" "$program out/fuzz/$name.*" logged "$name" "$program" -max_total_time="$1" -timeout=10 \
            -rss_limit_mb=2048 -artifact_prefix="out/fuzz/$name." "out/fuzz/$name"
    done
}

# The products need system DLLs and nothing else.
check_products() {
    local product
    build_or_fail mingw64 && build_or_fail mingw32 || return
    say "Checking what the products import"
    for product in out/x64/*.ocx out/x64/*.exe out/x86/*.ocx out/x86/*.exe; do
        check "imports of $product" "./quorvane test products" only_system_imports "$product"
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
