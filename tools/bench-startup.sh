#!/usr/bin/env bash
# Start-up benchmark: the settings program against a blank window, both
# started in the same Wine prefix, alternated, RUNS each (default 10). Each
# time is from CreateProcessW to the end of the main window's first paint,
# watched from outside by tools/startup_probe.exe in the same way for both
# (see that file). Prints every run, the two medians and their ratio; the
# goal is a ratio of at most 1.3. Nothing fails on the numbers.
#   bash tools/bench-startup.sh
set -euo pipefail
cd "$(dirname "$0")/.."
top=$PWD
runs=${RUNS:-10}
bash tools/install-deps.sh

cmake --preset mingw >/dev/null
program_target=$(cmake --build build/mingw --target help | grep -oE '^(TidewellSettings|tw_program):' | head -n 1)
cmake --build build/mingw -j"${JOBS:-2}" --target "${program_target%:}" tw_libraries startup_probe blank_window
prefix=${TIDEWELL_PREFIX:-$top/build/wineprefix}

xvfb_pid=
if [ -z "${DISPLAY:-}" ]; then
  display=:$((90 + RANDOM % 100))
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

bash tools/install.sh "$prefix" build/mingw >/dev/null
# shellcheck source=tools/wine-prefix.sh
source tools/wine-prefix.sh "$prefix"
# The baseline lies on drive C too, so both programs load from the same disk.
mkdir -p "$prefix/drive_c/bench"
cp build/mingw/tools/blank_window.exe "$prefix/drive_c/bench/"
"$WINE" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d 96 /f >/dev/null 2>&1

mkdir -p build/bench
TIDEWELL_SCREEN=240x320 "$WINE" build/mingw/tools/startup_probe.exe "$runs" \
  'C:\Program Files\Orvex\Tidewell\TidewellSettings.exe' 'C:\bench\blank_window.exe' | tee build/bench/startup.txt
echo "goal: ratio at most 1.30 (report saved in build/bench/startup.txt)"
