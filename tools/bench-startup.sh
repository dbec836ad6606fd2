#!/usr/bin/env bash
# Start-up benchmark: the settings program against a blank window, both
# started in the same Wine prefix, alternated, RUNS each (default 10). Each
# time is from CreateProcessW to the end of the main window's first paint,
# watched from outside by tools/startup_probe.exe in the same way for both
# (see that file). Prints every run, the two medians and their ratio; the
# goal is a ratio of at most 1.3. Then the first open of the Calendar page
# against the first open of the About page, RUNS fresh processes, by
# tools/page_probe.exe (goal: at most 3). Nothing fails on the numbers.
#   bash tools/bench-startup.sh
set -euo pipefail
cd "$(dirname "$0")/.."
top=$PWD
runs=${RUNS:-10}
bash tools/install-deps.sh

build=$(realpath -m "${TIDEWELL_BUILD:-build/mingw}")
cmake --preset mingw -B "$build" >/dev/null
program_target=$(cmake --build "$build" --target help | grep -oE '^(TidewellSettings|tw_program):' | head -n 1 || true)
if [ -z "$program_target" ]; then
  echo "The build has no TidewellSettings program (app/main.cpp is missing)." >&2
  exit 1
fi
cmake --build "$build" -j"${JOBS:-2}" --target "${program_target%:}" tw_libraries startup_probe page_probe blank_window
prefix=${TIDEWELL_PREFIX:-$top/build/wineprefix}

xvfb_pid=
if [ -z "${DISPLAY:-}" ]; then
  number=90
  while [ -e "/tmp/.X$number-lock" ]; do number=$((number + 1)); done
  display=:$number
  Xvfb "$display" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  xvfb_pid=$!
  export DISPLAY=$display
  sleep 1
fi
finish() {
  if [ -n "$xvfb_pid" ]; then
    wineserver -k >/dev/null 2>&1 || true
    kill "$xvfb_pid" 2>/dev/null || true
  fi
}
trap finish EXIT

bash tools/install.sh "$prefix" "$build" >/dev/null
# shellcheck source=tools/wine-prefix.sh
source tools/wine-prefix.sh "$prefix"
# The baseline lies on drive C too, so both programs load from the same disk.
mkdir -p "$prefix/drive_c/bench"
cp "$build/tools/blank_window.exe" "$prefix/drive_c/bench/"
"$WINE" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d 96 /f >/dev/null 2>&1
# A returning user: the first-run greeting would hold the first paint until
# someone answers it.
"$WINE" reg add 'HKCU\Software\Orvex\Tidewell' /v FirstTimeSettingsMsg /t REG_DWORD /d 1 /f >/dev/null 2>&1

mkdir -p build/bench
TIDEWELL_SCREEN=240x320 "$WINE" "$build/tools/startup_probe.exe" "$runs" \
  'C:\Program Files\Orvex\Tidewell\TidewellSettings.exe' 'C:\bench\blank_window.exe' | tee build/bench/startup.txt
echo "goal: ratio at most 1.30 (report saved in build/bench/startup.txt)"
# Pages 1 (Calendar) and 12 (About).
TIDEWELL_SCREEN=240x320 "$WINE" "$build/tools/page_probe.exe" "$runs" \
  'C:\Program Files\Orvex\Tidewell\TidewellSettings.exe' 1 12 | tee build/bench/pages.txt
echo "goal: ratio at most 3.00 (report saved in build/bench/pages.txt)"
