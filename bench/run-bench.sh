#!/usr/bin/env bash
# Runs the benchmark programs of a build folder on the offscreen platform and
# writes one JSON report per program and a Markdown summary (bench.md) into
# <build>/bench-results.
#
#   bash bench/run-bench.sh [build-dir]
#
# BENCH_QUICK=1           a short run that checks that everything works
# BENCH_REPETITIONS=n     repetitions per benchmark (default 5; the median counts)
# BENCH_MIN_TIME=s        minimum time per repetition in seconds (default 0.5)
# BENCH_FILTER=regex      run only the benchmarks whose names match
set -euo pipefail

BUILD_DIR="${1:-build-bench}"
BIN="$BUILD_DIR/bench"
OUT="$BUILD_DIR/bench-results"

[ -x "$BIN/bench_report" ] || { echo "run-bench: no benchmark programs in $BIN; build target figura_benchmarks first" >&2; exit 1; }
mkdir -p "$OUT"
rm -f "$OUT"/bench_*.json "$OUT/bench.md"

export QT_QPA_PLATFORM=offscreen
if [ "${BENCH_QUICK:-0}" != "0" ]; then
  export BENCH_QUICK=1
  MIN_TIME=0.01
  REPETITIONS=1
else
  MIN_TIME="${BENCH_MIN_TIME:-0.5}"
  REPETITIONS="${BENCH_REPETITIONS:-5}"
fi

common=(--benchmark_min_time="$MIN_TIME" --benchmark_repetitions="$REPETITIONS"
        --benchmark_out_format=json)
if [ "$REPETITIONS" -gt 1 ]; then
  common+=(--benchmark_report_aggregates_only=true)
fi
if [ -n "${BENCH_FILTER:-}" ]; then
  common+=(--benchmark_filter="$BENCH_FILTER")
fi

run() {
  local name="$1"
  shift
  echo "== $name"
  nice "$BIN/$name" "${common[@]}" --benchmark_out="$OUT/$name.json" "$@"
}

# The read-out keeps the repetitions of a benchmark together: each large data
# set is made once and read by both sides. Elsewhere the repetitions of the
# two sides alternate in random order, so that a change of load on the shared
# machine reaches both alike.
run bench_readout
run bench_replot --benchmark_enable_random_interleaving=true
run bench_memory
run bench_timeaxis --benchmark_enable_random_interleaving=true
run bench_records --benchmark_enable_random_interleaving=true

echo
reports=()
for name in bench_readout bench_replot bench_memory bench_timeaxis bench_records; do
  [ -s "$OUT/$name.json" ] && reports+=("$OUT/$name.json")
done
"$BIN/bench_report" "$OUT/bench.md" "${reports[@]}"
echo
echo "run-bench: results in $OUT (bench.md and one JSON report per program)"
