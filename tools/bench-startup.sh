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

# shellcheck source=tools/bench-prefix.sh
source tools/bench-prefix.sh "$prefix" "$build"
# The baseline lies on drive C too, so both programs load from the same disk.
mkdir -p "$prefix/drive_c/bench"
cp "$build/tools/blank_window.exe" "$prefix/drive_c/bench/"

mkdir -p build/bench
TIDEWELL_SCREEN=240x320 "$WINE" "$build/tools/startup_probe.exe" "$runs" \
  'C:\Program Files\Orvex\Tidewell\TidewellSettings.exe' 'C:\bench\blank_window.exe' | tee build/bench/startup.txt
echo "goal: ratio at most 1.30 (report saved in build/bench/startup.txt)"
# Pages 1 (Calendar) and 12 (About).
TIDEWELL_SCREEN=240x320 "$WINE" "$build/tools/page_probe.exe" "$runs" \
  'C:\Program Files\Orvex\Tidewell\TidewellSettings.exe' 1 12 | tee build/bench/pages.txt
echo "goal: ratio at most 3.00 (report saved in build/bench/pages.txt)"
