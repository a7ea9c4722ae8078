#!/usr/bin/env bash
# `make demo`: runs the gallery. Without a display (or with
# QT_QPA_PLATFORM=offscreen) it renders every page to pictures under the
# build folder instead, so that the demo also works on a server.
set -euo pipefail
BUILD_DIR="${1:-build}"
GALLERY="$BUILD_DIR/demo/figura-gallery"

if [ ! -x "$GALLERY" ]; then
  echo "run-demo: $GALLERY is not built; configure with -DFIGURA_BUILD_DEMO=ON (the default) and build" >&2
  exit 1
fi

if [ "${QT_QPA_PLATFORM:-}" != "offscreen" ] \
   && { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }; then
  exec "$GALLERY"
fi

OUT="$BUILD_DIR/gallery-screenshots"
echo "run-demo: no display; rendering the gallery pages to $OUT"
QT_QPA_PLATFORM=offscreen "$GALLERY" --screenshots "$OUT"
