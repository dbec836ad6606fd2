#!/usr/bin/env bash
# Installs what is missing, builds every configuration and runs every test:
# the native core suite, the same suite under AddressSanitizer and
# UndefinedBehaviorSanitizer, the Windows build under Wine, and a short run of
# each fuzz target.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh

# Every suite runs with a scratch home folder holding a canary file and a
# canary folder: the run fails if either is gone afterwards or if anything
# at all was written there. Nothing of ours may reach a user's home.
scratch_home=$(mktemp -d "${TMPDIR:-/tmp}/tw-home.XXXXXX")
echo canary >"$scratch_home/canary.txt"
mkdir "$scratch_home/canary-folder"
echo canary >"$scratch_home/canary-folder/keep.txt"
export HOME=$scratch_home
check_home() {
  local intruders
  intruders=$(cd "$scratch_home" && find . -mindepth 1 ! -path ./canary.txt ! -path ./canary-folder \
    ! -path ./canary-folder/keep.txt)
  if [ ! -f "$scratch_home/canary.txt" ] || [ ! -f "$scratch_home/canary-folder/keep.txt" ]; then
    echo "FAILED: a canary in the scratch home folder $scratch_home was removed"
    return 1
  fi
  if [ -n "$intruders" ]; then
    printf 'FAILED: written into the scratch home folder %s:\n%s\n' "$scratch_home" "$intruders"
    return 1
  fi
  echo "Home folder untouched: both canaries in place, nothing else written."
}

jobs=${JOBS:-2}
fuzz_seconds=${FUZZ_SECONDS:-20}
failed=0
step() { printf '\n=== %s ===\n' "$*"; }

step "layers: every include points to its own layer or below"
python3 tools/layers.py || failed=1

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
# Wine cannot make a link itself: the clean-up test finds this one, a link
# from the prefix to the canary folder, and must leave what it leads to.
mkdir -p "$WINEPREFIX/drive_c/twlink-fixture"
echo x >"$WINEPREFIX/drive_c/twlink-fixture/inside.txt"
ln -sfn "$scratch_home/canary-folder" "$WINEPREFIX/drive_c/twlink-fixture/out"
ctest --test-dir build/mingw --output-on-failure -V || failed=1
rm -f "$WINEPREFIX/drive_c/twlink-fixture/out" "$WINEPREFIX/drive_c/twlink-fixture/inside.txt"
rmdir "$WINEPREFIX/drive_c/twlink-fixture" 2>/dev/null || true

step "fuzz targets, ${fuzz_seconds} s each"
cmake --preset fuzz >/dev/null
cmake --build build/fuzz -j"$jobs"
bash tools/fuzz.sh "$fuzz_seconds" || failed=1

wineserver -k >/dev/null 2>&1 || true
check_home || failed=1
if [ "$failed" -ne 0 ]; then
  echo "Some tests failed."
  exit 1
fi
echo "All test stages passed."
