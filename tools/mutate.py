#!/usr/bin/env python3
"""Plants one small fault at a time in the program and records which tests catch it.

    python3 tools/mutate.py native [--count 200] [--seed 1] [--paths base settings ...]
    python3 tools/mutate.py wine   [--count 60]  [--seed 1] [--paths pages app ...]

The faults: a comparison flipped or shifted by one, && and || swapped, + and -
swapped, an integer constant changed, a call statement removed, a returned
boolean inverted. Candidates are every such place in the chosen folders; the
seed shuffles them, and the first --count that compile are planted, one at a
time, each followed by a build and one run of the suite. A fault that does not
compile is skipped and the next one drawn.

The work happens in a copy of the tracked files under build/mutate/ (refreshed
on each run, so only changed files rebuild), never in the checkout itself. The
native suite is the core tests' one process; the wine suite runs the core and
user-interface suites under Wine on a display of its own.

--replay FILE plants the faults of an earlier run's record again (found by
their line's text when the code around them has moved; a fault whose line is
gone is reported and left out), so a changed suite is scored on the very
same faults; --only file:line ... keeps some of them.

Printed: every fault with the tests that caught it, the survivors with file
and line, the score, and for each test how many faults it alone caught, so a
test that catches nothing no other test catches stands out. Everything is
also written to build/mutate/<suite>-<seed>.json.
"""
import argparse
import json
import os
import random
import re
import shutil
import subprocess
import sys
import time
from dataclasses import asdict, dataclass
from pathlib import Path

TOP = Path(__file__).resolve().parent.parent
WORK = TOP / "build" / "mutate"
SUITES = {
    "native": {"preset": "native", "paths": ["base", "platform", "settings", "data"],
               "targets": ["core_tests"], "timeout": 120},
    "wine": {"preset": "mingw", "paths": ["pages", "app", "controls"],
             "targets": ["core_tests", "ui_tests", "TidewellSettings"], "timeout": 1200},
}
SKIPPED_DIRS = {"win32", "memory"}  # native: code the native suite never builds

# Each kind: a pattern over code with strings and comments blanked, and how the
# matched text is replaced. Binary operators are matched with the spaces the
# code's format puts around them, which leaves templates and arrows alone.
SWAPS = {" < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", " == ": " != ",
         " != ": " == ", " && ": " || ", " || ": " && ", " + ": " - ", " - ": " + "}
OPERATOR = re.compile(r" (?:<=|>=|==|!=|&&|\|\||<|>|\+|-) ")
NUMBER = re.compile(r"(?<![\w.])(0[xX][0-9a-fA-F]+|\d+)(?![\w.'])")
ARRAY_SIZE = re.compile(r"\s*\]\s*(?:=|\{|;|\[)")
RETURN_BOOL = re.compile(r"\breturn (true|false);")
CALL_STATEMENT = re.compile(
    r"^(\s*)(?!(?:return|if|for|while|switch|case|else|do|delete|throw|goto|using|typedef)\b)"
    r"[A-Za-z_][\w:.>\-\[\]]*(?:<[\w:, ]*>)?\s*\(.*\)\s*;\s*$")


@dataclass
class Fault:
    file: str
    line: int
    kind: str
    before: str
    after: str

    def where(self):
        return f"{self.file}:{self.line}"


def blank_strings_and_comments(line, in_block):
    """The line with string and character literals and comments turned to spaces."""
    out, i = [], 0
    while i < len(line):
        if in_block:
            end = line.find("*/", i)
            if end < 0:
                out.append(" " * (len(line) - i))
                break
            out.append(" " * (end + 2 - i))
            i, in_block = end + 2, False
        elif line.startswith("//", i):
            out.append(" " * (len(line) - i))
            break
        elif line.startswith("/*", i):
            in_block = True
        elif line[i] in "\"'":
            quote, j = line[i], i + 1
            while j < len(line) and line[j] != quote:
                j += 2 if line[j] == "\\" else 1
            out.append(" " * (min(j, len(line) - 1) + 1 - i))
            i = j + 1
        else:
            out.append(line[i])
            i += 1
    return "".join(out)[:len(line)], in_block


def faults_in_line(code, line):
    """(kind, new line) for every fault that this line can take."""
    stripped = code.strip()
    if not stripped or stripped.startswith("#") or "static_assert" in code:
        return
    for match in OPERATOR.finditer(code):
        old = match.group(0)
        yield f"'{old.strip()}' to '{SWAPS[old].strip()}'", line[:match.start()] + SWAPS[old] + line[match.end():]
    for match in NUMBER.finditer(code):
        if ARRAY_SIZE.match(code, match.end()) and code[:match.start()].rstrip().endswith("["):
            continue  # an array's declared size: more room changes nothing
        text = match.group(1)
        value = int(text, 0)
        new = hex(value + 1) if text.lower().startswith("0x") else str(value + 1 if value != 1 else 0)
        yield f"constant {text} to {new}", line[:match.start()] + new + line[match.end():]
    for match in RETURN_BOOL.finditer(code):
        flipped = "false" if match.group(1) == "true" else "true"
        yield f"return {match.group(1)} to {flipped}", line[:match.start()] + f"return {flipped};" + line[match.end():]
    call = CALL_STATEMENT.match(code)
    if call and code.count("(") == code.count(")") and "=" not in code.split("(")[0]:
        yield "call removed", call.group(1) + ";  // removed\n"


def candidates(tree, paths, suite):
    found = []
    for folder in paths:
        for path in sorted((tree / folder).rglob("*.cpp")):
            relative = path.relative_to(tree)
            if suite == "native" and SKIPPED_DIRS & set(relative.parts):
                continue
            in_block = False
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(keepends=True), 1):
                code, in_block = blank_strings_and_comments(line.rstrip("\n"), in_block)
                for kind, after in faults_in_line(code, line):
                    found.append(Fault(str(relative), number, kind, line, after))
    return found


def replayed(tree, record, only):
    """The faults of an earlier run's record, each found again by its line's text."""
    faults = []
    for old in json.loads(Path(record).read_text())["results"]:
        fault = Fault(old["file"], old["line"], old["kind"], old["before"], old["after"])
        if only and fault.where() not in only:
            continue
        path = tree / fault.file
        lines = path.read_text(encoding="utf-8").splitlines(keepends=True) if path.is_file() else []
        matches = [n for n, line in enumerate(lines, 1) if line == fault.before]
        if not matches:
            print(f"gone: {fault.where()}: {fault.kind}", flush=True)
            continue
        fault.line = min(matches, key=lambda n: abs(n - fault.line))
        faults.append(fault)
    return faults


def refresh_copy(tree):
    """Copies the tracked files into the work tree, touching only those that
    differ, and removes the copy's files that are no longer tracked (a source
    file left behind would still be globbed into the build). The copy's own
    build folder is left alone; links are removed, never followed."""
    listed = subprocess.run(["git", "ls-files", "-z"], cwd=TOP, check=True, capture_output=True).stdout
    names = set(filter(None, listed.decode().split("\0")))
    for folder, subfolders, files in os.walk(tree):
        here = Path(folder)
        if here == tree:
            subfolders[:] = [name for name in subfolders if name not in ("build", ".git")]
        for name in files:
            path = here / name
            if str(path.relative_to(tree)) not in names:
                path.unlink()
    for name in sorted(names):
        source, target = TOP / name, tree / name
        if not source.is_file() or source.is_symlink():
            continue
        data = source.read_bytes()
        if not target.is_file() or target.read_bytes() != data:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(data)


class Runner:
    def __init__(self, suite, tree, jobs):
        self.suite, self.tree, self.jobs = SUITES[suite], tree, jobs
        self.build = tree / "build" / self.suite["preset"]
        self.env = dict(os.environ)
        self.xvfb = None
        if suite == "wine":
            self.prepare_wine()

    def prepare_wine(self):
        if not self.env.get("DISPLAY"):
            number = 120
            while Path(f"/tmp/.X{number}-lock").exists():
                number += 1
            self.xvfb = subprocess.Popen(["Xvfb", f":{number}", "-screen", "0", "1280x1024x24",
                                          "-nolisten", "tcp"], stdout=subprocess.DEVNULL,
                                         stderr=subprocess.DEVNULL)
            self.env["DISPLAY"] = f":{number}"
            time.sleep(1)
        script = f'source tools/wine-prefix.sh "{self.tree}/build/wineprefix" >/dev/null && env -0'
        dump = subprocess.run(["bash", "-c", script], cwd=self.tree, env=self.env, check=True,
                              capture_output=True).stdout
        self.env = dict(item.split("=", 1) for item in dump.decode().split("\0") if "=" in item)

    def configure(self):
        subprocess.run(["cmake", "--preset", self.suite["preset"]], cwd=self.tree, env=self.env,
                       check=True, stdout=subprocess.DEVNULL)

    def compiles(self, changed=""):
        """Whether the suite builds with the changed file compiled in; a fault in a
        file the suite does not build counts as not compiling."""
        command = ["cmake", "--build", str(self.build), f"-j{self.jobs}"]
        if self.suite["targets"]:
            command += ["--target", *self.suite["targets"]]
        result = subprocess.run(command, cwd=self.tree, env=self.env, capture_output=True)
        return result.returncode == 0 and changed.encode() in result.stdout

    def run_tests(self):
        """(tests that failed, tests that ran); a run that ends early fails as '(crash in X)' or '(timeout)'."""
        if self.suite["preset"] == "native":
            command = [str(self.build / "tests" / "core_tests"), "--gtest_color=no"]
        else:
            command = ["ctest", "--test-dir", str(self.build), "-V", "--timeout", str(self.suite["timeout"])]
        try:
            result = subprocess.run(command, cwd=self.build, env=self.env, capture_output=True,
                                    timeout=self.suite["timeout"] * 2)
        except subprocess.TimeoutExpired:
            return {"(timeout)"}, set()
        output = result.stdout.decode(errors="replace")
        failed = set(re.findall(r"\[  FAILED  \] ([\w/]+\.[\w/]+)", output))
        ran = re.findall(r"\[ RUN      \] ([\w/]+\.[\w/]+)", output)
        if result.returncode != 0 and not failed:
            failed.add(f"(crash in {ran[-1] if ran else 'start-up'})")
        return failed, set(ran)

    def close(self):
        if self.xvfb:
            subprocess.run(["wineserver", "-k"], env=self.env, stderr=subprocess.DEVNULL)
            self.xvfb.kill()


def plant(runner, tree, fault):
    """Runs the suite with the fault in place; None when it does not compile."""
    path = tree / fault.file
    text = path.read_text(encoding="utf-8").splitlines(keepends=True)
    original = list(text)
    text[fault.line - 1] = fault.after
    try:
        path.write_text("".join(text), encoding="utf-8")
        if not runner.compiles(fault.file):
            return None
        return runner.run_tests()[0]
    finally:
        path.write_text("".join(original), encoding="utf-8")


def report(results, baseline_tests):
    caught = [r for r in results if r["caught_by"]]
    alone = {name: 0 for name in baseline_tests}
    total = {name: 0 for name in baseline_tests}
    for result in caught:
        for name in result["caught_by"]:
            total[name] = total.get(name, 0) + 1
        if len(result["caught_by"]) == 1:
            name = result["caught_by"][0]
            alone[name] = alone.get(name, 0) + 1
    print("\nSurvivors:")
    for result in results:
        if not result["caught_by"]:
            print(f"  {result['file']}:{result['line']}: {result['kind']}: {result['before'].strip()}")
    print("\nTests that caught faults (caught, of them alone):")
    for name in sorted((n for n in total if total[n]), key=lambda n: (-alone.get(n, 0), -total[n], n)):
        print(f"  {total[name]:4d} {alone.get(name, 0):4d}  {name}")
    lonely = sorted(n for n in total if not alone.get(n, 0))
    print(f"\nTests that caught no fault alone ({len(lonely)}):")
    for name in lonely:
        print(f"  {name}")
    print(f"\nScore: {len(caught)} caught / {len(results)} planted "
          f"({100 * len(caught) / max(1, len(results)):.0f}%)")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("suite", choices=SUITES)
    parser.add_argument("--count", type=int, default=None, help="faults to plant (native 200, wine 60)")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--paths", nargs="*", help="folders whose .cpp files take faults")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--list", action="store_true", help="print the drawn faults and stop")
    parser.add_argument("--replay", metavar="FILE", help="plant the faults recorded in an earlier run's .json")
    parser.add_argument("--only", nargs="*", metavar="FILE:LINE", help="with --replay: just these faults")
    args = parser.parse_args()
    suite = SUITES[args.suite]
    count = args.count or (200 if args.suite == "native" else 60)

    tree = WORK / "src"
    refresh_copy(tree)
    if args.replay:
        pool = replayed(tree, args.replay, set(args.only or []))
        count = args.count or len(pool)
    else:
        pool = candidates(tree, args.paths or suite["paths"], args.suite)
        random.Random(args.seed).shuffle(pool)
    if args.list:
        for fault in pool[:count]:
            print(f"{fault.where()}: {fault.kind}")
        return 0
    print(f"{len(pool)} places can take a fault; planting {count}, seed {args.seed}", flush=True)

    runner = Runner(args.suite, tree, args.jobs)
    try:
        runner.configure()
        if subprocess.run(["cmake", "--build", str(runner.build)], cwd=tree, env=runner.env,
                          capture_output=True).returncode != 0:
            sys.exit("mutate: the unchanged copy does not build")
        broken, baseline_tests = runner.run_tests()
        if broken:
            sys.exit(f"mutate: the unchanged suite fails already: {sorted(broken)}")
        results = []
        for fault in pool:
            if len(results) == count:
                break
            started = time.monotonic()
            caught_by = plant(runner, tree, fault)
            if caught_by is None:
                continue
            results.append({**asdict(fault), "caught_by": sorted(caught_by)})
            verdict = ", ".join(sorted(caught_by)) if caught_by else "SURVIVED"
            print(f"[{len(results)}/{count}] {fault.where()}: {fault.kind}: {verdict} "
                  f"({time.monotonic() - started:.0f} s)", flush=True)
    finally:
        runner.close()
    report(results, baseline_tests)
    out = WORK / (f"{args.suite}-replay.json" if args.replay else f"{args.suite}-{args.seed}.json")
    out.write_text(json.dumps({"suite": args.suite, "seed": args.seed, "results": results}, indent=1))
    print(f"Written: {out}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
