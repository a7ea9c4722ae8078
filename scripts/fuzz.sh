#!/usr/bin/env bash
# `make fuzz`: builds the fuzz targets with libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer in build-fuzz (clang; the library gets coverage
# instrumentation too) and runs each of them, then prints a table of
# executions, executions per second, coverage and findings.
#
#   FUZZ_SECONDS   time per target (default 120)
#   FUZZ_RUNS      a number of executions per target instead of a time
#   FUZZ_TARGETS   names to run (default: all), e.g. "timetext plotattributes"
#   FUZZ_JOBS      targets run side by side (default 1)
#   FUZZ_SEED      libFuzzer's random seed, for a run that can be repeated
#                  (default: a new one each run)
#
# New inputs go to build-fuzz/corpus/<name>; the committed seeds in
# tests/fuzz/corpus/<name> are only read. A crash or a failed property leaves
# its input in build-fuzz/findings/<name>/ and makes the script fail: add the
# input to the committed corpus once the bug is fixed, so that the replay
# test keeps it.
set -euo pipefail
ROOT="$(cd "$(dirname "$0")/.." && pwd)"
BUILD_DIR="${FUZZ_BUILD_DIR:-$ROOT/build-fuzz}"
SECONDS_PER_TARGET="${FUZZ_SECONDS:-120}"
RUNS="${FUZZ_RUNS:-}"
JOBS="${JOBS:-$(nproc)}"
PARALLEL="${FUZZ_JOBS:-1}"
ALL_TARGETS=(plotattributes curveattributes markerlabelformat ticklabelformat
             peaklabelformat timetext customscalesettings doublevalidator)
read -r -a TARGETS <<< "${FUZZ_TARGETS:-${ALL_TARGETS[*]}}"

command -v clang++ >/dev/null || { echo "fuzz: libFuzzer needs clang++" >&2; exit 1; }

cmake -S "$ROOT" -B "$BUILD_DIR" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-g -O1" \
  -DFIGURA_FUZZ=ON -DFIGURA_BUILD_TESTS=ON -DFIGURA_BUILD_DEMO=OFF >/dev/null
cmake --build "$BUILD_DIR" -j "$JOBS" --target "${TARGETS[@]/#/fuzz_}"

source "$ROOT/scripts/sanitizer-env.sh"
# libFuzzer's own leak check runs per input; LeakSanitizer's at exit as well.
export QT_QPA_PLATFORM=offscreen

run_one() {
  local name="$1"
  local binary="$BUILD_DIR/tests/fuzz/fuzz_$name"
  local corpus="$BUILD_DIR/corpus/$name"
  local findings="$BUILD_DIR/findings/$name"
  local log="$BUILD_DIR/logs/$name.log"
  local extra=()
  local asan_extra=""
  case "$name" in
    timetext|doublevalidator) ;;
    # QSettings reads "@Variant(...)" values through QDataStream, which
    # allocates the length it finds in the file (up to tens of GB) before it
    # sees that the data is short (QDataStream::readBlock in QtCore). That is
    # Qt's, and Qt copes with a failed allocation, so here ASan fails every
    # request above 64 MB as malloc would on a small machine
    # (allocator_may_return_null in sanitizer-env.sh). Granting them instead
    # costs shadow memory and quarantine for each: the run slows to a crawl
    # and ends at the limit on resident memory.
    customscalesettings)
      extra=(-dict="$ROOT/tests/fuzz/settings.dict")
      asan_extra="max_allocation_size_mb=64:quarantine_size_mb=16" ;;
    *) extra=(-dict="$ROOT/tests/fuzz/json.dict") ;;
  esac
  local limit=(-max_total_time="$SECONDS_PER_TARGET")
  [ -n "$RUNS" ] && limit=(-runs="$RUNS")
  [ -n "${FUZZ_SEED:-}" ] && limit+=(-seed="$FUZZ_SEED")
  mkdir -p "$corpus" "$findings" "$(dirname "$log")"
  ASAN_OPTIONS="$ASAN_OPTIONS${asan_extra:+:$asan_extra}" "$binary" "${limit[@]}" "${extra[@]}" -max_len=4096 -timeout=10 -rss_limit_mb=4096 \
    -print_final_stats=1 -artifact_prefix="$findings/" \
    "$corpus" "$ROOT/tests/fuzz/corpus/$name" > "$log" 2>&1 || true
}

if [ -n "$RUNS" ]; then budget="$RUNS runs"; else budget="$SECONDS_PER_TARGET s"; fi
echo "fuzz: ${TARGETS[*]}, $budget each"
pids=()
for name in "${TARGETS[@]}"; do
  run_one "$name" &
  pids+=($!)
  if [ "${#pids[@]}" -ge "$PARALLEL" ]; then
    wait "${pids[0]}"
    pids=("${pids[@]:1}")
  fi
done
wait

failed=0
printf '%-20s %12s %10s %8s %8s %8s %9s\n' target executions exec/s cov ft corpus findings
for name in "${TARGETS[@]}"; do
  log="$BUILD_DIR/logs/$name.log"
  execs=$(awk '/stat::number_of_executed_units:/ {print $2}' "$log" | tail -n1)
  rate=$(awk '/stat::average_exec_per_sec:/ {print $2}' "$log" | tail -n1)
  # The last status line ("#N DONE cov: C ft: F corp: U/Sb ...") has the coverage.
  status_line=$(grep -E '^#[0-9]+' "$log" | tail -n1 || true)
  cov=$(sed -n 's/.* cov: \([0-9]*\).*/\1/p' <<< "$status_line")
  ft=$(sed -n 's/.* ft: \([0-9]*\).*/\1/p' <<< "$status_line")
  corp=$(sed -n 's/.* corp: \([0-9]*\).*/\1/p' <<< "$status_line")
  found=$(find "$BUILD_DIR/findings/$name" -type f | wc -l)
  if [ "$found" -gt 0 ] || grep -qE 'ERROR: (AddressSanitizer|LeakSanitizer|libFuzzer)|runtime error:|property failed' "$log"; then
    failed=1
    [ "$found" -gt 0 ] || found="see log"
  fi
  printf '%-20s %12s %10s %8s %8s %8s %9s\n' "$name" "${execs:--}" "${rate:--}" "${cov:--}" "${ft:--}" "${corp:--}" "$found"
done
echo "fuzz: logs in $BUILD_DIR/logs, findings in $BUILD_DIR/findings"
exit $failed
