#!/usr/bin/env bash
# Runs every fuzz target of build/fuzz for the given number of seconds on a
# copy of its seed corpus; fails if any target finds a crash.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-20}
status=0
for target in build/fuzz/fuzz/fuzz_*; do
  [ -x "$target" ] || continue
  name=$(basename "$target")
  corpus=build/fuzz/corpus/$name
  mkdir -p "$corpus"
  [ -d "fuzz/corpus/${name#fuzz_}" ] && cp -n fuzz/corpus/"${name#fuzz_}"/* "$corpus"/ 2>/dev/null || true
  echo "--- $name (${seconds} s)"
  if ! "$target" -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix=build/fuzz/ "$corpus" 2>build/fuzz/$name.log; then
    tail -40 build/fuzz/$name.log
    status=1
  else
    grep -E 'stat::number_of_executed_units|Done' build/fuzz/$name.log | tail -2
  fi
done
exit $status
