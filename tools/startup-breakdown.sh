#!/usr/bin/env bash
# Start-up breakdown: starts the settings program RUNS times (default 10)
# with TIDEWELL_TRACE naming a file in build/bench/trace, waits for the file
# its first paint leaves, ends the program and prints, for each step, the
# median time from the process's creation to the step's end, the median and
# spread of the step's own time, and its registry and comctl32 calls as the
# median run made them. One unmeasured run warms the caches first.
#   bash tools/startup-breakdown.sh
set -euo pipefail
cd "$(dirname "$0")/.."
top=$PWD
runs=${RUNS:-10}
bash tools/install-deps.sh

build=$(realpath -m "${TIDEWELL_BUILD:-build/mingw}")
cmake --preset mingw -B "$build" >/dev/null
cmake --build "$build" -j"${JOBS:-2}" --target TidewellSettings tw_libraries
prefix=${TIDEWELL_PREFIX:-$top/build/wineprefix}

program_pid=
# shellcheck source=tools/bench-prefix.sh
source tools/bench-prefix.sh "$prefix" "$build"
finish() {
  if [ -n "$program_pid" ]; then kill "$program_pid" 2>/dev/null || true; fi
  bench_prefix_finish
}
trap finish EXIT

traces=$top/build/bench/trace
mkdir -p "$traces"
rm -f "$traces"/run-*.txt
program="$prefix/drive_c/Program Files/Orvex/Tidewell/TidewellSettings.exe"
for run in $(seq 0 "$runs"); do
  file=$traces/run-$run.txt
  TIDEWELL_SCREEN=240x320 TIDEWELL_TRACE=$("$WINE" winepath -w "$file" 2>/dev/null) "$WINE" "$program" \
    >/dev/null 2>&1 &
  program_pid=$!
  for _ in $(seq 600); do
    [ -s "$file" ] && break
    sleep 0.05
  done
  kill "$program_pid" 2>/dev/null || true
  wait "$program_pid" 2>/dev/null || true
  program_pid=
  if [ ! -s "$file" ]; then
    echo "run $run: the program left no trace in $file" >&2
    exit 1
  fi
  sleep 0.2
done
rm -f "$traces/run-0.txt"
python3 - "$traces" <<'PYTHON' | tee build/bench/startup-breakdown.txt
import pathlib, statistics, sys
runs = [p.read_text().splitlines() for p in sorted(pathlib.Path(sys.argv[1]).glob("run-*.txt"))]
print(f"{len(runs)} runs; ms from process creation to each step's end, and the step's own ms")
print(f"{'step':32}{'end':>8}{'step':>8}{'min':>8}{'max':>8}  calls (median run)")
for index, line in enumerate(runs[0]):
    name = line.split("\t")[0]
    rows = [run[index].split("\t") for run in runs]
    if any(row[0] != name for row in rows):
        sys.exit(f"the runs disagree on step {index + 1}")
    ends = [float(row[1]) for row in rows]
    steps = [float(row[2]) for row in rows]
    median = statistics.median(steps)
    nearest = min(rows, key=lambda row: abs(float(row[2]) - median))
    calls = nearest[3] if len(nearest) > 3 else ""
    print(f"{name:32}{statistics.median(ends):8.1f}{median:8.1f}{min(steps):8.1f}{max(steps):8.1f}  {calls}")
PYTHON
