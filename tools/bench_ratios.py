#!/usr/bin/env python3
"""Reads Google Benchmark JSON on stdin; prints each benchmark's speed as a
ratio to its group's baseline (the benchmark of the same "group/" prefix whose
name continues with "baseline"). Above 1.0 is faster than the baseline.

  build/native/bench/tw_bench --benchmark_format=json --benchmark_repetitions=5 \
    | python3 tools/bench_ratios.py
"""
import json
import sys

# With --benchmark_repetitions the medians stand for each benchmark.
every = json.load(sys.stdin)["benchmarks"]
medians = [b for b in every if b.get("aggregate_name") == "median"]
runs = medians or [b for b in every if b.get("run_type", "iteration") == "iteration"]
for run in medians:
    run["name"] = run["run_name"]
baselines = {}
for run in runs:
    group, _, variant = run["name"].partition("/")
    if variant.startswith("baseline"):
        baselines[group] = run
for run in runs:
    group, _, variant = run["name"].partition("/")
    base = baselines.get(group)
    if base is None or base is run:
        continue
    ratio = base["real_time"] / run["real_time"]
    rate = run.get("items_per_second", 0) / 1e6
    print(f"{run['name']:45} {ratio:6.2f}x {base['name'].partition('/')[2]}   ({rate:8.1f} M items/s)")
