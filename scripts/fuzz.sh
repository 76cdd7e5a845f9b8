#!/usr/bin/env bash
# Builds the fuzz targets and runs each of them for a while; fails when one finds something.
# Usage: fuzz.sh [SECONDS [TARGET ...]]     10 s and all targets unless told otherwise
#
# What a target has learned stays in build/fuzz/corpus/ for the next run. A finding is left in
# build/fuzz/findings/; give it to the target as its only argument to see it again.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-10}
shift $(($# > 0 ? 1 : 0))
build=build/fuzz

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
mkdir -p $build/findings
[ $# -gt 0 ] || set -- $(cd $build/bin && ls -d fuzz_*)

findings=0
for target in "$@"; do
    log=$build/$target.log
    mkdir -p "$build/corpus/$target"
    result="no finding"
    if ! "$build/bin/$target" -max_total_time="$seconds" -max_len=1024 -timeout=10 \
        -rss_limit_mb=1024 -print_final_stats=1 -verbosity=1 \
        -artifact_prefix="$build/findings/$target-" "$build/corpus/$target" >"$log" 2>&1; then
        findings=$((findings + 1))
        result="FINDING: $(grep -m 1 -E '^not so:|ERROR:|runtime error:' "$log" || tail -n 1 "$log")"
    fi
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
    printf '%-20s %10s executions in %s s, %s\n' "$target" "${executions:-?}" "$seconds" "$result"
done
exit $((findings > 0))
