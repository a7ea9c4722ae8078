#!/usr/bin/env bash
# Runs the gallery. Without a display it renders every page to images under
# the build folder instead, so the demo also works on a server.
set -euo pipefail
BUILD_DIR="${1:-build}"
GALLERY="$BUILD_DIR/demo/figura-gallery"

if [ ! -x "$GALLERY" ]; then
  echo "run-demo: the library is built and tested with 'make test'; the gallery application is not part of this build yet."
  exit 0
fi

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$GALLERY"
fi

OUT="$BUILD_DIR/gallery-screenshots"
echo "run-demo: no display; rendering the gallery pages to $OUT"
QT_QPA_PLATFORM=offscreen "$GALLERY" --screenshots "$OUT"
