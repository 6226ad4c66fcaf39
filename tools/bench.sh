# SPDX-License-Identifier: MIT
# The benchmarks: natively, for x64 and for x86, in out/bench.

BENCHMARK_SOURCE=out/google-benchmark

# apt's own sources, as sources of source packages.
apt_source_list() {
    local keyring=/usr/share/keyrings/debian-archive-keyring.gpg
    # shellcheck disable=SC2016  # apt fills the fields in
    apt-get indextargets --format '$(ORIGIN) $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' | sort -u |
        awk -v key="$keyring" '$1 == "Debian" { print "deb-src [signed-by=" key "]", $2, $3, $4 }'
}

# The source of Google Benchmark from its Debian source package: one version for all compilers.
fetch_benchmark() {
    local root=$PWD
    [ -e "$BENCHMARK_SOURCE/CMakeLists.txt" ] && return
    say "Getting the source of Google Benchmark"
    mkdir -p out/apt/lists/partial "$BENCHMARK_SOURCE"
    apt_source_list >out/apt/sources.list
    local apt=(apt-get -o "Dir::Etc::SourceList=$root/out/apt/sources.list"
        -o Dir::Etc::SourceParts=/dev/null -o "Dir::State::Lists=$root/out/apt/lists"
        -o APT::Sandbox::User=root)
    logged apt-source-update "${apt[@]}" update || return
    logged apt-source env -C out/apt "${apt[@]}" source --download-only benchmark || return
    tar -xf out/apt/benchmark_*.orig.tar.* -C "$BENCHMARK_SOURCE" --strip-components 1
}

# bench_one SUITE PRESET [COMMAND...]: build and run the benchmarks of one platform.
bench_one() {
    local suite=$1 preset=$2 tree=out/bench/build-$1
    say "Building the benchmarks for $suite"
    logged "configure-bench-$suite" cmake --preset "$preset" -B "$tree" -DQUORVANE_BENCH=ON \
        -DQUORVANE_TESTS=OFF &&
        logged "build-bench-$suite" cmake --build "$tree" --target quorvane_bench -- --quiet || return
    say "Running them; this takes minutes"
    "${@:3}" "$tree/bench/quorvane_bench$([ "$suite" = native ] || echo .exe)" \
        --benchmark_out="out/bench/$suite.json" --benchmark_out_format=json \
        --benchmark_color=false \
        >"out/bench/$suite.txt" || return
    sed -n '/^Ratios/,$p' "out/bench/$suite.txt"
}

# The picture of how the cost of a cycle grows.
plot_growth() {
    need plot
    logged plot-growth python3 tools/plot_growth.py out/bench/native.json docs/pictures/growth.svg &&
        say "Drawn: docs/pictures/growth.svg"
}

# run_bench [SUITE...]: all three unless some are named.
run_bench() {
    local suite
    need build
    mkdir -p out/bench
    fetch_benchmark || die "the source of Google Benchmark could not be had"
    [ $# -gt 0 ] || set -- native x64 x86
    for suite in "$@"; do
        case $suite in
            native) bench_one native native && plot_growth ;;
            x64) need windows64 wine && wine_start x64 && bench_one x64 mingw64 in_wine x64 3600 wine ;;
            x86) need windows32 wine i386 && wine_start x86 && bench_one x86 mingw32 in_wine x86 3600 wine ;;
            *) die "unknown suite '$suite'" ;;
        esac || die "the benchmarks of $suite failed"
    done
    say "Raw results: $(echo out/bench/*.json)"
}
