#!/usr/bin/env bash
# Redraws the images of src/figura/images with scripts/image-generator.
# The PNGs are committed; run this only after changing the generator.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$(mktemp -d /tmp/figura-image-generator.XXXXXX)"
trap 'rm -rf "$build"' EXIT
cmake -S "$root/scripts/image-generator" -B "$build" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j2 >/dev/null
"$build/figura-image-generator" "$root/src/figura/images"
echo "images written to $root/src/figura/images"
