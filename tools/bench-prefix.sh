#!/usr/bin/env bash
# Sourced by the start-up benchmarks: a virtual display when there is none
# (ended, with the prefix's wineserver, by bench_prefix_finish), the program
# installed into the prefix, and the prefix set as every timed start needs it.
#   source tools/bench-prefix.sh <prefix> <build folder>
bench_xvfb_pid=
if [ -z "${DISPLAY:-}" ]; then
  number=90
  while [ -e "/tmp/.X$number-lock" ]; do number=$((number + 1)); done
  Xvfb ":$number" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  bench_xvfb_pid=$!
  export DISPLAY=:$number
  sleep 1
fi
bench_prefix_finish() {
  if [ -n "$bench_xvfb_pid" ]; then
    wineserver -k >/dev/null 2>&1 || true
    kill "$bench_xvfb_pid" 2>/dev/null || true
  fi
}
# A script with more to end sets its own trap and calls this from it.
trap bench_prefix_finish EXIT

bash tools/install.sh "$1" "$2" >/dev/null
# shellcheck source=tools/wine-prefix.sh
source tools/wine-prefix.sh "$1"
"$WINE" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d 96 /f >/dev/null 2>&1
# A returning user: the first-run greeting would hold the first paint until
# someone answers it.
"$WINE" reg add 'HKCU\Software\Orvex\Tidewell' /v FirstTimeSettingsMsg /t REG_DWORD /d 1 /f >/dev/null 2>&1
