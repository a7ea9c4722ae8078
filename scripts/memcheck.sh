#!/usr/bin/env bash
# `make memcheck`: the lifecycle test of every plot class under valgrind's
# memcheck, on the ordinary (unsanitized) build. Fails on any memory error
# and on any "definitely lost" block; tests/valgrind.supp holds the noise of
# Qt and the libraries below it, each entry commented.
#
#   FIGURA_LIFECYCLE_ROUNDS   lives per plot class (default 100)
set -euo pipefail
ROOT="$(cd "$(dirname "$0")/.." && pwd)"
BUILD_DIR="${1:-$ROOT/build}"
TEST="$BUILD_DIR/tests/lifecycle/tst_lifecycle"
LOG="$BUILD_DIR/memcheck.log"

[ -x "$TEST" ] || { echo "memcheck: $TEST is not built" >&2; exit 1; }
command -v valgrind >/dev/null || { echo "memcheck: valgrind is not installed" >&2; exit 1; }

start=$(date +%s)
status=0
# QRegularExpression compiles patterns to machine code at run time, which
# valgrind cannot follow (reports from "???" frames); Qt's switch turns that off.
QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=3600000 QT_ENABLE_REGEXP_JIT=0 \
  valgrind --tool=memcheck --leak-check=full --show-leak-kinds=definite \
    --errors-for-leak-kinds=definite --error-exitcode=42 --num-callers=40 \
    --track-origins=yes --suppressions="$ROOT/tests/valgrind.supp" \
    --gen-suppressions=all --log-file="$LOG" \
    "$TEST" || status=$?

grep -E 'definitely lost:|indirectly lost:|ERROR SUMMARY:' "$LOG" | sed 's/^==[0-9]*== /memcheck: /'
echo "memcheck: $(( $(date +%s) - start )) s, full report in $LOG"
if [ "$status" -ne 0 ]; then
  echo "memcheck: failed (exit $status)" >&2
  exit 1
fi
