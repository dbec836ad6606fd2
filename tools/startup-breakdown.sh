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

xvfb_pid=
if [ -z "${DISPLAY:-}" ]; then
  number=90
  while [ -e "/tmp/.X$number-lock" ]; do number=$((number + 1)); done
  Xvfb ":$number" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  xvfb_pid=$!
  export DISPLAY=:$number
  sleep 1
fi
program_pid=
finish() {
  if [ -n "$program_pid" ]; then kill "$program_pid" 2>/dev/null || true; fi
  if [ -n "$xvfb_pid" ]; then
    wineserver -k >/dev/null 2>&1 || true
    kill "$xvfb_pid" 2>/dev/null || true
  fi
}
trap finish EXIT

bash tools/install.sh "$prefix" "$build" >/dev/null
# shellcheck source=tools/wine-prefix.sh
source tools/wine-prefix.sh "$prefix"
"$WINE" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d 96 /f >/dev/null 2>&1
# A returning user: the first-run greeting would hold the first paint.
"$WINE" reg add 'HKCU\Software\Orvex\Tidewell' /v FirstTimeSettingsMsg /t REG_DWORD /d 1 /f >/dev/null 2>&1

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
