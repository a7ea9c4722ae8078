#!/usr/bin/env bash
# `make test-sanitize`: the library and every test built with
# AddressSanitizer and UndefinedBehaviorSanitizer (clang where it is
# installed) in build-sanitize, then run by ctest, the corpus replays of the
# fuzz targets included. Prints how long building and testing took.
set -euo pipefail
ROOT="$(cd "$(dirname "$0")/.." && pwd)"
BUILD_DIR="${SANITIZE_BUILD_DIR:-$ROOT/build-sanitize}"
JOBS="${JOBS:-$(nproc)}"
cd "$ROOT"

compilers=()
if command -v clang++ >/dev/null && command -v clang >/dev/null; then
  compilers=(-DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++)
fi

start=$(date +%s)
# -O1 keeps the stacks readable and the run fast enough; Debug keeps the
# assertions of Qt's inline code (QList::at and friends) switched on.
cmake -S . -B "$BUILD_DIR" "${compilers[@]}" \
  -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" \
  -DFIGURA_SANITIZE=ON -DFIGURA_BUILD_TESTS=ON -DFIGURA_BUILD_DEMO=OFF
cmake --build "$BUILD_DIR" -j "$JOBS"
built=$(date +%s)

source "$ROOT/scripts/sanitizer-env.sh"
status=0
# The package test installs and builds a host program, which sanitizers
# have nothing to add to; `make test` runs it.
(cd "$BUILD_DIR" && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$JOBS" \
  -E '^package_') || status=$?
done_at=$(date +%s)

echo "test-sanitize: build $((built - start)) s, tests $((done_at - built)) s"
exit $status
