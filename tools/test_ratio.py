#!/usr/bin/env python3
"""Prints how many lines of test code there are for each line of program.

Counts the non-blank lines of C and C++ files that are not comments:
tests/ and fuzz/ against every other folder of the tree (build/ and .git/
left out). Usage: python3 tools/test_ratio.py [tree, default the checkout]
"""
import pathlib
import re
import sys

SOURCES = {".c", ".cpp", ".h"}
TEST_FOLDERS = {"tests", "fuzz"}
SKIPPED = {"build", ".git"}


def code_lines(text):
    text = re.sub(r"/\*.*?\*/", lambda m: "\n" * m.group(0).count("\n"), text, flags=re.S)
    return sum(1 for line in text.splitlines() if line.strip() and not line.strip().startswith("//"))


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent.parent)
    tests = program = 0
    for path in root.rglob("*"):
        parts = path.relative_to(root).parts
        if path.suffix not in SOURCES or not path.is_file() or parts[0] in SKIPPED:
            continue
        lines = code_lines(path.read_text(encoding="utf-8", errors="replace"))
        if parts[0] in TEST_FOLDERS:
            tests += lines
        else:
            program += lines
    print(f"tests {tests}, program {program}: {100 * tests / program:.0f}%")


if __name__ == "__main__":
    main()
