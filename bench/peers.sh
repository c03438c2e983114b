#!/usr/bin/env bash
# Whole processes side by side, each timed with /usr/bin/time on the generated
# 50 MB track: `trackloom-cli gpx shift` and `gpx generate` against GPSBabel
# doing the same job (when it is installed), their peak memory against that of
# opening the track (`gpx info`), and `gpx info` on the dense 1.75 million
# point file. Run after a build:   bench/peers.sh [BUILD_DIR]
set -euo pipefail
build="${1:-build}"
cli="$build/tools/cli/trackloom-cli"
for tool in "$cli" "$build/bench/bench_data"; do
  [[ -x "$tool" ]] || { echo "missing $tool: build first (cmake --build $build)" >&2; exit 2; }
done
[[ -x /usr/bin/time ]] || { echo "missing /usr/bin/time (Debian package: time)" >&2; exit 2; }
mapfile -t inputs < <("$build/bench/bench_data")
large="${inputs[0]}"
dense="${inputs[1]}"
out="$(mktemp -d)"
trap 'rm -rf "$out"' EXIT

# Prints "seconds kilobytes" of one run of the command; its output is dropped.
measure() {
  /usr/bin/time -f '%e %M' -o "$out/time" "$@" >/dev/null
  cat "$out/time"
}

# The fastest of three runs, as "seconds kilobytes".
best() {
  local best_s="" best_kb=""
  for _ in 1 2 3; do
    read -r s kb < <(measure "$@")
    if [[ -z "$best_s" ]] || awk -v a="$s" -v b="$best_s" 'BEGIN { exit !(a < b) }'; then
      best_s="$s" best_kb="$kb"
    fi
  done
  echo "$best_s $best_kb"
}

ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

read -r open_s open_kb < <(best "$cli" gpx info "$large")
read -r shift_s shift_kb < <(best "$cli" gpx shift --start 2030-01-01T00:00:00Z "$large" -o "$out/shifted.gpx")
read -r gen_s gen_kb < <(best "$cli" gpx generate --start 2030-01-01T00:00:00Z --speed 14 "$large" -o "$out/generated.gpx")
printf '%-58s %6.2f s %7d MiB\n' "trackloom-cli gpx info (opening)" "$open_s" $((open_kb / 1024))
printf '%-58s %6.2f s %7d MiB   memory %s x opening (goal <= 2)\n' "trackloom-cli gpx shift" \
  "$shift_s" $((shift_kb / 1024)) "$(ratio "$shift_kb" "$open_kb")"
printf '%-58s %6.2f s %7d MiB   memory %s x opening (goal <= 2)\n' "trackloom-cli gpx generate --speed" \
  "$gen_s" $((gen_kb / 1024)) "$(ratio "$gen_kb" "$open_kb")"

if command -v gpsbabel >/dev/null; then
  read -r babel_s babel_kb < <(best gpsbabel -t -i gpx -f "$large" -x track,move=+1h -o gpx -F "$out/babel.gpx")
  printf '%-58s %6.2f s %7d MiB\n' "gpsbabel -x track,move=+1h" "$babel_s" $((babel_kb / 1024))
  echo "ratio shift / gpsbabel (goal < 1):    $(ratio "$shift_s" "$babel_s")"
  echo "ratio generate / gpsbabel (goal < 1): $(ratio "$gen_s" "$babel_s")"
else
  echo "gpsbabel is not installed: no comparison (Debian package: gpsbabel)"
fi

read -r dense_s dense_kb < <(best "$cli" gpx info "$dense")
printf '%-58s %6.2f s %7d MiB   (goal <= 1.5 s, <= 1024 MiB)\n' \
  "trackloom-cli gpx info, 1.75 million bare points" "$dense_s" $((dense_kb / 1024))
if command -v xmllint >/dev/null; then
  read -r lint_s lint_kb < <(best xmllint --noout "$dense")
  printf '%-58s %6.2f s %7d MiB\n' "xmllint --noout, same file (a bare libxml2 tree)" "$lint_s" \
    $((lint_kb / 1024))
fi
