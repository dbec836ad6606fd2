#!/usr/bin/env python3
"""Prints which folder includes which, and fails on an include that points
upwards or on a cycle of includes between files.

    python3 tools/layers.py

The layers, from the bottom: base/ and resources/ (ids only), platform/,
settings/, data/, controls/, pages/, app/. A folder may include its own layer
and the ones below it. Tests, tools, benchmarks and fuzz targets stand on top
of everything and are not checked.
"""
import collections
import pathlib
import re
import sys

LAYERS = [("base", "resources"), ("platform",), ("settings",), ("data",), ("controls",), ("pages",), ("app",)]
RANK = {folder: rank for rank, folders in enumerate(LAYERS) for folder in folders}
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)
top = pathlib.Path(__file__).resolve().parent.parent


def folder_of(path):
    return path.split("/", 1)[0]


def sources():
    for folder in RANK:
        for path in sorted((top / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                yield path.relative_to(top).as_posix()


def main():
    includes = {path: INCLUDE.findall((top / path).read_text(encoding="utf-8")) for path in sources()}
    counts = collections.Counter()
    upwards = []
    for path, targets in includes.items():
        for target in targets:
            source_folder, target_folder = folder_of(path), folder_of(target)
            if target_folder not in RANK:
                continue
            if source_folder != target_folder:
                counts[(source_folder, target_folder)] += 1
            if RANK[target_folder] > RANK[source_folder]:
                upwards.append(f"{path} -> {target}")

    print("includes between folders (from -> to: count):")
    for (source, target), count in sorted(counts.items(), key=lambda item: (-RANK[item[0][0]], RANK[item[0][1]])):
        print(f"  {source:9} -> {target:9} {count}")

    cycles = find_cycles(includes)
    for line in upwards:
        print(f"upward include: {line}")
    for cycle in cycles:
        print("include cycle: " + " -> ".join(cycle))
    if upwards or cycles:
        return 1
    print("every include points to its own layer or below; no cycles")
    return 0


def find_cycles(includes):
    """Cycles between files, a header and its source counted as one unit."""
    unit = lambda path: path.rsplit(".", 1)[0]
    graph = collections.defaultdict(set)
    for path, targets in includes.items():
        for target in targets:
            if unit(target) != unit(path):
                graph[unit(path)].add(unit(target))
    cycles, state, stack = [], {}, []

    def visit(node):
        state[node] = "open"
        stack.append(node)
        for child in sorted(graph[node]):
            if state.get(child) == "open":
                cycles.append(stack[stack.index(child):] + [child])
            elif child not in state:
                visit(child)
        stack.pop()
        state[node] = "done"

    for node in sorted(graph):
        if node not in state:
            visit(node)
    return cycles


if __name__ == "__main__":
    sys.exit(main())
