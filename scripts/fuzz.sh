#!/usr/bin/env bash
# Runs the fuzzers one after the other: fuzz.sh [seconds for each] [target]..., all of them by
# default. What they come to know is kept for the next run; a file that shows a fault belongs into
# tests/corpus, with the mending.
set -eu
cd "$(dirname "$0")/.."
. scripts/prepare.sh
prepare build test fuzz

seconds=${1:-1200}
shift || true
[ $# -gt 0 ] || set -- tests/corpus/*/
build fuzz

# The files that the program is given are worth no disk.
scratch=$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo /tmp)")
trap 'rm -rf "$scratch"' EXIT
export TMPDIR=$scratch LSAN_OPTIONS=suppressions=tests/leaks.supp:print_suppressions=0

failed=0
for target; do
    target=$(basename "$target")
    work=build/fuzz/runs/$target
    mkdir -p "$work/corpus" "$work/findings"
    build/fuzz/tests/"fuzz_$target" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 \
        -artifact_prefix="$work/findings/" "$work/corpus" "tests/corpus/$target" \
        >"$work/log.txt" 2>&1 || failed=1
    awk -v target="$target" '
        /cov: / { for (i = 1; i < NF; i++) if ($i == "cov:") edges = $(i + 1) }
        /number_of_executed_units/ { runs = $2 }
        /Test unit written to/ { findings = findings "\n    " $NF }
        END { printf "%-10s %9d executions, %5d edges, findings: %s\n", target, runs, edges,
                     findings ? findings : "none" }' "$work/log.txt"
done
exit $failed
