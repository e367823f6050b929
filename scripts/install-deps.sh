#!/usr/bin/env bash
# Installs every Debian package the project needs to build, test, benchmark and run.
# Idempotent: quiet and quick when everything is already there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build ccache pkg-config
  qtbase5-dev qtbase5-dev-tools libqt5svg5-dev
  libpcre3-dev libgeographiclib-dev libeigen3-dev
  libmarble-dev marble-data
  marble-plugins   # reads the vector coasts, borders and places that the Atlas and Plain themes draw
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth
  xdotool          # moves the pointer from one window to another in the test of a drag between two processes
  clang libclang-rt-14-dev
  libgdal-dev      # reads and writes tracks of GPX, KML, GeoJSON, GeoPackage and the other vector formats
  gdal-bin gpsbabel  # ogr2ogr and gpsbabel make the other tools' files that the track import tests read
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "install-deps: installing ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then sudo="sudo"; else
    echo "install-deps: need root or sudo to install: ${missing[*]}" >&2
    exit 1
  fi
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
echo "install-deps: done"
