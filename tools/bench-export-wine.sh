#!/usr/bin/env bash
# Export benchmark under Wine: the settings exporter against Wine's own
# `reg export` on the same tree of 10,000 values (100 keys of 100 values, a
# third of them strings), alternated RUNS times (default 7) in one prefix.
# Each run is a whole Wine process timed from outside, so both pay the same
# start-up. Prints every run, the medians and their ratio (ours / reg; the
# goal is at most 1.0), and the exporter's own in-process time. Nothing fails
# on the numbers.
#   bash tools/bench-export-wine.sh [mingw-build-folder] [wine-prefix]
set -euo pipefail
cd "$(dirname "$0")/.."
top=$PWD
build=${1:-build/mingw}
prefix=${2:-$top/build/wineprefix}
runs=${RUNS:-7}
key='Software\TwBench'

if [ ! -f "$build/libtw_core.a" ]; then
  cmake --preset mingw -B "$build" >/dev/null
fi
cmake --build "$build" -j"${JOBS:-2}" --target tw_core tw_platform_win32 >/dev/null
x86_64-w64-mingw32-g++-posix -std=c++20 -O2 -static -municode -DUNICODE -D_UNICODE -I"$top" \
  tools/export_tree.cpp "$build/libtw_platform_win32.a" "$build/libtw_core.a" -ladvapi32 \
  -o "$build/export_tree.exe"

# shellcheck source=tools/wine-prefix.sh
source tools/wine-prefix.sh "$prefix"
exe=$(winepath -w "$build/export_tree.exe" 2>/dev/null)
"$WINE" "$exe" populate "$key"

now() { date +%s.%N; }
since() { echo "$(now) - $1" | bc; }
ours=() theirs=() inside=()
for run in $(seq "$runs"); do
  start=$(now)
  inside+=("$("$WINE" "$exe" export "$key" 'C:\twbench-ours.txt' | tr -d '\r')")
  ours+=("$(since "$start")")
  start=$(now)
  "$WINE" reg export "HKCU\\$key" 'C:\twbench-reg.reg' /y >/dev/null 2>&1
  theirs+=("$(since "$start")")
  echo "run $run: ours ${ours[-1]} s (export itself ${inside[-1]} ms), reg export ${theirs[-1]} s"
done
"$WINE" reg delete "HKCU\\$key" /f >/dev/null 2>&1 || true
ls -l "$prefix/drive_c/twbench-ours.txt" "$prefix/drive_c/twbench-reg.reg" | awk '{print $5, $NF}'
rm -f "$prefix/drive_c/twbench-ours.txt" "$prefix/drive_c/twbench-reg.reg"

/usr/bin/python3 - "${ours[*]}" "${theirs[*]}" "${inside[*]}" <<'PY'
import statistics, sys
ours, theirs, inside = ([float(v) for v in arg.split()] for arg in sys.argv[1:4])
mo, mt = statistics.median(ours), statistics.median(theirs)
ratios = [o / t for o, t in zip(ours, theirs)]
print(f"median whole run: ours {mo:.3f} s, reg export {mt:.3f} s")
print(f"median ratio ours / reg export: {statistics.median(ratios):.2f} (goal: at most 1.00)")
print(f"median in-process export: {statistics.median(inside):.1f} ms")
PY
