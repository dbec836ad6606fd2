#!/usr/bin/env bash
# Builds the program, installs it into the Wine prefix kept in the build tree
# and starts it.
#   bash tools/run.sh
# TIDEWELL_SCREEN picks the device screen: 240x320 (default), 320x240 or
# 480x640 (which runs at 192 dpi). With a display the window opens there.
# Without one, a virtual display is started and every page is saved as a PNG
# at each of the three screens, in build/screenshots/<screen>/page-NN.png;
# the folder is printed at the end.
# TIDEWELL_BUILD and TIDEWELL_PREFIX choose another build folder and prefix
# (defaults build/mingw and build/wineprefix).
set -euo pipefail
cd "$(dirname "$0")/.."
top=$PWD
bash tools/install-deps.sh

build=$(realpath -m "${TIDEWELL_BUILD:-build/mingw}")
cmake --preset mingw -B "$build" >/dev/null
# Only what running needs: the program, its libraries and the capture helper.
program_target=$(cmake --build "$build" --target help | grep -oE '^(TidewellSettings|tw_program):' | head -n 1 || true)
if [ -z "$program_target" ]; then
  echo "The build has no TidewellSettings program (app/main.cpp is missing)." >&2
  exit 1
fi
cmake --build "$build" -j"${JOBS:-2}" --target "${program_target%:}" tw_libraries page_shots
prefix=${TIDEWELL_PREFIX:-$top/build/wineprefix}

xvfb_pid=
headless=
if [ -z "${DISPLAY:-}" ]; then
  headless=1
  number=90
  while [ -e "/tmp/.X$number-lock" ]; do number=$((number + 1)); done
  display=:$number
  Xvfb "$display" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  xvfb_pid=$!
  export DISPLAY=$display
  sleep 1
fi
finish() {
  if [ -n "$headless" ]; then
    wineserver -k >/dev/null 2>&1 || true
    [ -z "$xvfb_pid" ] || kill "$xvfb_pid" 2>/dev/null || true
  fi
}
trap finish EXIT

bash tools/install.sh "$prefix" "$build"
# shellcheck source=tools/wine-prefix.sh
source tools/wine-prefix.sh "$prefix"
product="$prefix/drive_c/Program Files/Orvex/Tidewell"
program='C:\Program Files\Orvex\Tidewell\TidewellSettings.exe'

# The screen's dots per inch come from the prefix's registry and apply to the
# next process started.
set_dpi() {
  "$WINE" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null 2>&1
}
dpi_for() { [ "$1" = 480x640 ] && echo 192 || echo 96; }

if [ -z "$headless" ]; then
  screen=${TIDEWELL_SCREEN:-240x320}
  set_dpi "$(dpi_for "$screen")"
  # Started from its own folder, so drive-less device paths resolve on C:.
  cd "$product"
  status=0
  TIDEWELL_SCREEN=$screen "$WINE" TidewellSettings.exe || status=$?
  set_dpi 96
  exit "$status"
fi

shots="$top/build/screenshots"
rm -rf "$shots"
failed=0
for screen in 240x320 320x240 480x640; do
  folder="$shots/$screen"
  mkdir -p "$folder"
  set_dpi "$(dpi_for "$screen")"
  if ! TIDEWELL_SCREEN=$screen "$WINE" "$build/tools/page_shots.exe" "$program" \
        "Z:${folder//\//\\}"; then
    echo "run: not every page of $screen was captured" >&2
    failed=1
  fi
  for bmp in "$folder"/*.bmp; do
    [ -e "$bmp" ] || continue
    convert "$bmp" "${bmp%.bmp}.png" && rm "$bmp"
  done
done
set_dpi 96
echo "Screenshots of every page: $shots"
exit "$failed"
