#!/usr/bin/env bash
# Installs everything the build needs on a Debian 12 machine: the Qt 6 and tool
# packages, and Qwt 6.3.0 built for Qt 6 from Debian's own source archive
# (Debian 12 ships Qwt only for Qt 5). Safe to run again: it does only what is
# missing.
set -euo pipefail

QWT_VERSION=6.3.0
QWT_PREFIX="${QWT_PREFIX:-/opt/qwt-${QWT_VERSION}}"
QWT_TARBALL="qwt_${QWT_VERSION}.orig.tar.bz2"
QWT_SHA256=dcb085896c28aaec5518cbc08c0ee2b4e60ada7ac929d82639f6189851a6129a

PACKAGES=(
  cmake make g++ clang libclang-rt-14-dev pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev qt6-tools-dev qt6-tools-dev-tools
  libgl-dev libgtest-dev libbenchmark-dev xvfb xauth valgrind
  bzip2 ca-certificates
)

die() { echo "setup: $*" >&2; exit 1; }

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"
  elif command -v sudo >/dev/null; then sudo "$@"
  else die "need root (or sudo) to run: $*"; fi
}

install_packages() {
  local missing=()
  for p in "${PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
  done
  if [ "${#missing[@]}" -eq 0 ]; then
    echo "setup: Debian packages present"
    return
  fi
  echo "setup: installing ${missing[*]}"
  as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}

qwt_installed() {
  local h="$QWT_PREFIX/include/qwt_global.h"
  [ -f "$h" ] && grep -Eq "QWT_VERSION_STR[[:space:]]+\"${QWT_VERSION}\"" "$h" && [ -e "$QWT_PREFIX/lib/libqwt.so" ]
}

# The Debian mirror this machine already uses, read from its own apt sources.
debian_mirror() {
  local uri=""
  if compgen -G "/etc/apt/sources.list.d/*.sources" >/dev/null; then
    uri=$(awk '/^URIs:/ {print $2}' /etc/apt/sources.list.d/*.sources | grep -v security | head -n1 || true)
  fi
  if [ -z "$uri" ] && [ -f /etc/apt/sources.list ]; then
    uri=$(awk '$1=="deb" && $0 !~ /security/ {for(i=2;i<=NF;i++) if ($i ~ /^(https?|ftp|file):/) {print $i; exit}}' /etc/apt/sources.list || true)
  fi
  [ -n "$uri" ] || die "no Debian mirror found in /etc/apt sources"
  echo "$uri"
}

fetch_qwt_tarball() {
  local dir="$1"
  local apt_dir="$dir/apt"
  mkdir -p "$apt_dir/lists/partial" "$apt_dir/cache/archives/partial"
  echo "deb-src $(debian_mirror) sid main" > "$apt_dir/sources.list"
  local opts=(
    -o "Dir::Etc::sourcelist=$apt_dir/sources.list"
    -o "Dir::Etc::sourceparts=-"
    -o "Dir::State::Lists=$apt_dir/lists"
    -o "Dir::Cache=$apt_dir/cache"
    -o "APT::Sandbox::User=root"
  )
  apt-get "${opts[@]}" update -q >/dev/null || echo "setup: apt update of the source list reported errors; checking the tarball anyway"
  # The .dsc may be refused (signature of the sid suite) while the tarball
  # itself arrives; the checksum below is what decides.
  (cd "$dir" && apt-get "${opts[@]}" source --download-only qwt >/dev/null 2>&1) || true
  [ -f "$dir/$QWT_TARBALL" ] || die "could not download $QWT_TARBALL from Debian's source archive"
  echo "$QWT_SHA256  $dir/$QWT_TARBALL" | sha256sum -c --quiet - || die "checksum of $QWT_TARBALL does not match"
}

build_qwt() {
  if qwt_installed; then
    echo "setup: Qwt $QWT_VERSION present in $QWT_PREFIX"
    return
  fi
  local work
  work=$(mktemp -d /tmp/figura-qwt.XXXXXX)
  trap 'rm -rf "$work"' RETURN EXIT
  echo "setup: fetching Qwt $QWT_VERSION sources"
  fetch_qwt_tarball "$work"
  tar -xjf "$work/$QWT_TARBALL" -C "$work"
  local src="$work/qwt-$QWT_VERSION"
  [ -d "$src" ] || die "unexpected layout of $QWT_TARBALL"
  local pri="$src/qwtconfig.pri"
  sed -i -E "s|^(\s*QWT_INSTALL_PREFIX\s*=).*|\1 $QWT_PREFIX|" "$pri"
  for feature in QwtDesigner QwtOpenGL QwtPolar QwtExamples QwtPlayground QwtTests; do
    sed -i -E "s|^(\s*QWT_CONFIG\s*\+=\s*$feature\b)|#\1|" "$pri"
  done
  echo "setup: building Qwt $QWT_VERSION (a few minutes)"
  (cd "$src" && qmake6 qwt.pro >/dev/null && make -s -j"$(nproc)" >/dev/null) || die "Qwt build failed"
  as_root make -s -C "$src" install >/dev/null || die "Qwt install failed"
  qwt_installed || die "Qwt install did not produce $QWT_PREFIX"
  echo "setup: Qwt $QWT_VERSION installed in $QWT_PREFIX"
}

install_packages
build_qwt
