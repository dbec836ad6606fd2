#!/usr/bin/env bash
# Installs what is missing, builds every configuration and runs every test:
# the native core suite, the same suite under AddressSanitizer and
# UndefinedBehaviorSanitizer, the Windows build under Wine, and a short run of
# each fuzz target.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh

jobs=${JOBS:-2}
fuzz_seconds=${FUZZ_SECONDS:-20}
failed=0
step() { printf '\n=== %s ===\n' "$*"; }

step "native build and tests"
cmake --preset native >/dev/null
cmake --build build/native -j"$jobs"
ctest --test-dir build/native -j"$jobs" --output-on-failure || failed=1

step "sanitizer build (ASan + UBSan) and tests"
cmake --preset sanitize >/dev/null
cmake --build build/sanitize -j"$jobs"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build/sanitize -j"$jobs" --output-on-failure || failed=1

step "Windows build (MinGW-w64) and tests under Wine"
cmake --preset mingw >/dev/null
cmake --build build/mingw -j"$jobs"
if [ -z "${DISPLAY:-}" ]; then
  # Windows and GDI under Wine need an X display; a virtual one serves.
  Xvfb :77 -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  xvfb_pid=$!
  export DISPLAY=:77
  trap 'kill $xvfb_pid 2>/dev/null || true' EXIT
  sleep 1
fi
source tools/wine-prefix.sh "$PWD/build/wineprefix"
ctest --test-dir build/mingw --output-on-failure -V || failed=1

step "fuzz targets, ${fuzz_seconds} s each"
cmake --preset fuzz >/dev/null
cmake --build build/fuzz -j"$jobs"
bash tools/fuzz.sh "$fuzz_seconds" || failed=1

wineserver -k >/dev/null 2>&1 || true
if [ "$failed" -ne 0 ]; then
  echo "Some tests failed."
  exit 1
fi
echo "All test stages passed."
