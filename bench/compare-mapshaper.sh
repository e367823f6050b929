#!/usr/bin/env bash
# Area-based thinning file to file, kelvor-edit beside mapshaper (the reference for
# Visvalingam line simplification): one million-point track as CSV and as GeoJSON, 90 % of the
# points dropped by each, both times and their ratio printed. Wall and CPU seconds are the
# best of RUNS runs each, so that a busy machine weighs on both alike.
#
#   bench/compare-mapshaper.sh [BUILD_DIR]      (default build; RUNS=3, POINTS=1000000)
set -euo pipefail

here="$(cd "$(dirname "$0")" && pwd)"
build="$(cd "${1:-$here/../build}" && pwd)"
kelvor_edit="$build/bin/kelvor-edit"
runs="${RUNS:-3}"
points="${POINTS:-1000000}"
tools="$here/.tools"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

[ -x "$kelvor_edit" ] || { echo "no $kelvor_edit: build first (cmake --build $build --target kelvor-edit)" >&2; exit 1; }

# mapshaper from npm, into a folder of the bench, once.
if [ ! -x "$tools/node_modules/.bin/mapshaper" ]; then
  echo "installing mapshaper into $tools ..." >&2
  npm install --silent --no-audit --no-fund --prefix "$tools" mapshaper >&2
fi
mapshaper="$tools/node_modules/.bin/mapshaper"

# One recorded flight, one point a second: laps of a wide loop some 400 km across, weaving and
# climbing, with a spell of taxiing at a crawl every thousand points; written as a CSV track
# (degrees, metres) and as a GeoJSON line (longitude, latitude).
python3 - "$points" "$work/track.csv" "$work/track.geojson" <<'EOF'
import math, sys
n, csv_path, json_path = int(sys.argv[1]), sys.argv[2], sys.argv[3]
s = 0.0
with open(csv_path, "w") as csv, open(json_path, "w") as js:
    csv.write("time,lat,lon,alt\n")
    js.write('{"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[')
    for i in range(n):
        s += 0.0025 if i % 1000 < 40 else 1.0
        lat = 34.4 + 2.0 * math.sin(s * 2 * math.pi / 90000) + 0.0115 * math.sin(s * 0.05)
        lon = -114.6 + 2.9 * math.sin(s * 2 * math.pi / 70000 + 1.0) + 0.0115 * math.cos(s * 0.031)
        alt = 3000.0 + 500.0 * math.sin(s * 2 * math.pi / 20000)
        csv.write("%d,%.9f,%.9f,%.3f\n" % (i, lat, lon, alt))
        js.write("%s[%.9f,%.9f]" % ("," if i else "", lon, lat))
    js.write("]}}\n")
EOF

# Runs a command RUNS times. Prints the best wall and the best CPU (user + system) seconds.
best() {
  local wall="" cpu=""
  for _ in $(seq "$runs"); do
    /usr/bin/time -f "%e %U %S" -o "$work/time" "$@" > "$work/out.txt" 2> "$work/err.txt" || {
      cat "$work/err.txt" >&2; exit 1; }
    read -r w u s < <(tail -1 "$work/time")
    local c; c=$(echo "$u + $s" | bc -l)
    if [ -z "$wall" ] || (( $(echo "$w < $wall" | bc -l) )); then wall=$w; fi
    if [ -z "$cpu" ] || (( $(echo "$c < $cpu" | bc -l) )); then cpu=$c; fi
  done
  echo "$wall $cpu"
}

read -r k_wall k_cpu < <(best "$kelvor_edit" decimate "$work/track.csv" "$work/out.kls" --method area --drop 0.9)
kept=$("$kelvor_edit" info "$work/out.kls" | sed -n 's/^points: \([0-9]*\).*/\1/p')
# The same thinning of the track itself, so that OUT holds what mapshaper's output holds.
read -r r_wall r_cpu < <(best "$kelvor_edit" decimate "$work/track.csv" "$work/replaced.kls" --method area --drop 0.9 \
                              --replace)
read -r m_wall m_cpu < <(best "$mapshaper" -i "$work/track.geojson" -simplify visvalingam 10% no-repair \
                                            -o "$work/out.geojson")

printf 'track: %d points (CSV %s, GeoJSON %s); best of %d runs; load average %s\n' "$points" \
  "$(du -h "$work/track.csv" | cut -f1)" "$(du -h "$work/track.geojson" | cut -f1)" "$runs" \
  "$(cut -d' ' -f1-3 /proc/loadavg)"
row() { printf '%-58s %6.2f s wall  %6.2f s CPU  %s\n' "$@"; }
row "kelvor-edit decimate --method area --drop 0.9" "$k_wall" "$k_cpu" "($kept points in OUT: the source and its copy)"
row "kelvor-edit ... --replace (OUT: the thinned track alone)" "$r_wall" "$r_cpu" ""
row "mapshaper -simplify visvalingam 10% no-repair" "$m_wall" "$m_cpu" ""
printf '%-58s %6.2f wall    %6.2f CPU\n' "ratio mapshaper / kelvor-edit" \
  "$(echo "$m_wall / $k_wall" | bc -l)" "$(echo "$m_cpu / $k_cpu" | bc -l)"
