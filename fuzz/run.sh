#!/usr/bin/env bash
# Fuzzes the readers: builds with clang, writes the seeds, runs each target for so many seconds, and
# prints what came of it. The corpus grows in build/fuzz/corpus from run to run.
# Usage: fuzz/run.sh SECONDS [--jobs N] [TARGET...]     all targets, one at a time
# Ends with 1 when something was found: the input lies in build/fuzz/findings/TARGET.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

all=(object snapshot settings scheme keymap template tga record)
usage() { sed -n 's/^# Usage: /usage: /p' "$0" >&2; exit 2; }

[[ ${1:-} =~ ^[1-9][0-9]*$ ]] || usage
seconds=$1 jobs=1 targets=()
shift
while [ $# -gt 0 ]; do
    case $1 in
        --jobs) [[ ${2:-} =~ ^[1-9][0-9]*$ ]] || usage; jobs=$2; shift ;;
        *) [[ " ${all[*]} " == *" $1 "* ]] || usage; targets+=("$1") ;;
    esac
    shift
done
[ ${#targets[@]} -gt 0 ] || targets=("${all[@]}")

need "${fuzz_packages[@]}"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
build=$PWD/build/fuzz
"$build/bin/write_seeds" "$build/seeds"

# The longest input worth making: a few brushes, a few lines, a few pixels.
declare -A longest=([object]=8192 [snapshot]=8192 [settings]=2048 [scheme]=256 [keymap]=256
    [template]=4096 [tga]=4096 [record]=512)

# fuzz TARGET: runs it, its words into a log.
fuzz() {
    mkdir -p "$build/corpus/$1" "$build/findings/$1" "$build/logs"
    "$build/bin/$1_fuzzer" "$build/corpus/$1" "$build/seeds/$1" -dict="fuzz/dictionaries/$1.dict" \
        -max_total_time="$seconds" -max_len="${longest[$1]}" -timeout=30 -rss_limit_mb=1024 \
        -malloc_limit_mb=64 -print_final_stats=1 -artifact_prefix="$build/findings/$1/" \
        >"$build/logs/$1.log" 2>&1 || echo "ended with $?" >>"$build/logs/$1.log"
}

export ASAN_OPTIONS=detect_stack_use_after_return=1 UBSAN_OPTIONS=print_stacktrace=1
for target in "${targets[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n; done
    fuzz "$target" &
done
wait

status=0
printf '%-10s %12s %8s %8s %8s  %s\n' target executions cov ft corpus result
for target in "${targets[@]}"; do
    log=$build/logs/$target.log
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    read -r cov ft corpus <<<"$(sed -n 's/.* cov: \([0-9]*\) ft: \([0-9]*\) corp: \([0-9]*\).*/\1 \2 \3/p' "$log" | tail -1)"
    result="nothing found"
    if grep -q '^ended with' "$log" || [ -z "$executions" ]; then
        status=1
        result="FOUND SOMETHING, see $log"
    fi
    printf '%-10s %12s %8s %8s %8s  %s\n' "$target" "${executions:-?}" "${cov:-?}" "${ft:-?}" \
        "${corpus:-?}" "$result"
done
exit $status
