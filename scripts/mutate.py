#!/usr/bin/env python3
"""Counts how many small faults the tests find.

Draws lines of src at random and spoils each: drops its statement, negates its condition, changes a
number by one, an operator, or a letter of a text. Each fault goes by itself into a clone of the last
commit under build/mutants; the test programs that it changes are built and run, those of its own
library first, as far as the first failure. Tells for each whether it was found, and sums them up.

What comes out is also in build/mutants/results.tsv, which --list takes to run the same faults again.
"""

import argparse
import collections
import hashlib
import pathlib
import random
import re
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
SCRATCH = ROOT / "build" / "mutants"
TREE = SCRATCH / "tree"
BUILD = TREE / "build" / "mutants"
LEFT_OUT = {"architecture", "display", "fuzz", "kernel"}  # read the sources, or need a machine
PATIENCE = 60  # seconds for a test program, more where it takes long by itself

OPERATORS = [("==", "!="), ("!=", "=="), ("<", "<="), ("<=", "<"), (">", ">="), (">=", ">"),
             ("&&", "||"), ("||", "&&"), ("+", "-"), ("-", "+"), ("*", "/"), ("/", "*"),
             ("&", "|"), ("|", "&"), ("+=", "-="), ("-=", "+="), ("<<", ">>"), (">>", "<<")]
STATEMENT = re.compile(r"\s*(?:\+\+|--)?[A-Za-z_][\w:]*(?:\(|\.|->|\[| [-+*/|&]?= |\+\+|--).*;$")
NO_STATEMENT = re.compile(r"\s*(return|using|case|break|throw|static_assert|Q_\w+)\b")
CONDITION = re.compile(r"(\b(?:if|while) \()(.*)(\) \{)$")
TEXT = re.compile(r'"(?:[^"\\]|\\.)*"')
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9A-Fa-f]+|\d+(?:\.\d+)?)(?=[uUlLfF]*(?!\w|'\d))")


def next_to(number, by):
    if number[:2] in ("0x", "0X"):
        return f"0x{max(int(number, 16) + by, 0):0{len(number) - 2}X}"
    return f"{float(number) * (1 + by / 10):g}" if "." in number else str(max(int(number) + by, 0))


def faults_of(line, rng):
    """The faults that the line can have, as (kind, spoilt line); one of each kind and place."""
    code = line.split("//")[0].rstrip() if '"' not in line else line
    found = []
    if STATEMENT.match(code) and not NO_STATEMENT.match(code) and code.count("(") == code.count(")"):
        found.append(("drop", code[:len(code) - len(code.lstrip())] + ";"))
    if condition := CONDITION.search(code):
        found.append(("negate", code[:condition.start()] + "{}!({}){}".format(*condition.groups())))
    texts = list(TEXT.finditer(code))
    outside = lambda at: not any(text.start() <= at < text.end() for text in texts)
    for number in NUMBER.finditer(code):
        if outside(number.start()):
            spoilt = next_to(number[0], rng.choice((1, -1)))
            found.append(("number", code[:number.start()] + spoilt + code[number.end():]))
    for old, new in OPERATORS:
        for at in re.finditer(re.escape(f" {old} "), code):
            if outside(at.start()) and "#include" not in code and "template" not in code:
                found.append(("operator", f"{code[:at.start()]} {new} {code[at.end():]}"))
    for word, other in (("true", "false"), ("false", "true"), ("++", "--")):
        for at in re.finditer(re.escape(word) if word == "++" else rf"\b{word}\b", code):
            if outside(at.start()):
                found.append(("operator", code[:at.start()] + other + code[at.end():]))
    for text in texts:
        letters = [at for at in range(text.start(), text.end())
                   if code[at].isalpha() and code[at - 1] not in "\\%"]
        if letters and "#include" not in code:
            at = rng.choice(letters)
            found.append(("text", code[:at] + ("q" if code[at] != "q" else "x") + code[at + 1:]))
    return [(kind, spoilt) for kind, spoilt in found if spoilt != code]


def draw(rng, only):
    """Faults without end, each as (file, line number, kind, line, spoilt line)."""
    lines = [(path, number, line)
             for path in sorted(TREE.glob("src/**/*")) if path.suffix in (".cpp", ".h")
             and any(f"{path.relative_to(TREE)}/".startswith(f"{top}/") for top in only)
             for number, line in enumerate(path.read_text().splitlines(), 1)
             if line.strip() and not line.strip().startswith(("//", "#", "*"))]
    if not lines:
        sys.exit("There are no lines to spoil.")
    drawn = set()
    while True:
        path, number, line = rng.choice(lines)
        if faults := faults_of(line, rng):
            kind, spoilt = rng.choice(faults)
            if (path, number, spoilt) not in drawn:
                drawn.add((path, number, spoilt))
                yield path, number, kind, line, spoilt


def listed(file):
    for row in pathlib.Path(file).read_text().splitlines():
        _, place, kind, line, spoilt = row.split("\t")[:5]
        path, number = place.split(":")
        yield TREE / path, int(number), kind, line, spoilt


def build(*targets):
    return subprocess.run(["ninja", "-C", BUILD, *targets], capture_output=True).returncode == 0


def run(program, patience):
    """Whether every test passed; no is the answer of one that hangs too."""
    try:
        return subprocess.run([BUILD / "bin" / program, "--gtest_fail_fast", "--gtest_brief=1"],
                              capture_output=True, timeout=patience, cwd=BUILD).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def digest(program):
    return hashlib.sha1((BUILD / "bin" / program).read_bytes()).digest()


def set_up():
    """A clone of the last commit, ready to be built. The test programs."""
    SCRATCH.mkdir(parents=True, exist_ok=True)
    if not TREE.exists():
        subprocess.run(["git", "clone", "-q", ROOT, TREE], check=True)
    subprocess.run(["git", "fetch", "-q", ROOT, "HEAD"], cwd=TREE, check=True)
    subprocess.run(["git", "reset", "-q", "--hard", "FETCH_HEAD"], cwd=TREE, check=True)
    options = {"CMAKE_BUILD_TYPE": "Debug", "CMAKE_CXX_FLAGS_DEBUG": "-O0",
               "TQX_BENCHMARKS": "OFF", "TQX_PACKAGING": "OFF"}
    if shutil.which("ccache"):
        options["CMAKE_CXX_COMPILER_LAUNCHER"] = "ccache"
    subprocess.run(["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja",
                    *(f"-D{name}={value}" for name, value in options.items())],
                   check=True, stdout=subprocess.DEVNULL)
    declared = "".join(lists.read_text() for lists in TREE.glob("tests/*/CMakeLists.txt"))
    found = re.findall(r"tqx_test\((\w+)_tests( QT)?", declared)
    cheapest_first = sorted(found, key=lambda test: (test[1], test[0] == "app", test[0]))
    return [f"{name}_tests" for name, _ in cheapest_first if name not in LEFT_OUT]


def judge(path, before, after, programs, known):
    """The program that finds the fault, "" where none does. None: it does not build.

    `known` is what a program is without a fault and how long it may take, found out at first need.
    """
    nearest = path.relative_to(TREE).parts[1] + "_tests"
    for program in sorted(programs, key=lambda name: name != nearest):
        if program not in known:
            path.write_text(before)
            good = build(program)
            begin = time.monotonic()
            if not good or not run(program, 10 * PATIENCE):
                sys.exit(f"{program} fails without a fault.")
            known[program] = (digest(program), PATIENCE + 5 * (time.monotonic() - begin))
        path.write_text(after)
        if not build(program):
            return None
        untouched, patience = known[program]
        if digest(program) != untouched and not run(program, patience):
            return program
    return ""


def main():
    arguments = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    arguments.add_argument("--count", type=int, default=20, help="faults to draw, 20 unless told")
    arguments.add_argument("--seed", type=int, default=1, help="of the draw, 1 unless told")
    arguments.add_argument("--only", default="src", help="folders to draw from: src/link,src/device")
    arguments.add_argument("--list", help="runs the faults of this file in place of a draw")
    asked = arguments.parse_args()

    programs = set_up()
    faults = listed(asked.list) if asked.list else draw(random.Random(asked.seed),
                                                        asked.only.split(","))
    known = {}
    sums = collections.defaultdict(lambda: [0, 0])
    with open(SCRATCH / "results.tsv", "w", encoding="utf-8") as results:
        for path, number, kind, line, spoilt in faults:
            before = path.read_text() if path.exists() else ""
            lines = before.split("\n")
            at = [index for index, other in enumerate(lines) if other == line]
            if not at:
                print(f"gone      {path.relative_to(TREE)}:{number} {line.strip()}", flush=True)
                continue
            nearest = min(at, key=lambda index: abs(index - (number - 1)))  # the tree may have moved
            lines[nearest] = spoilt
            try:
                by = judge(path, before, "\n".join(lines), programs, known)
            finally:
                path.write_text(before)
            if by is None:
                continue
            verdict = "found" if by else "survived"
            library = path.relative_to(TREE).parts[1]
            sums[library][0] += bool(by)
            sums[library][1] += 1
            place = f"{path.relative_to(TREE)}:{number}"
            print(f"{verdict:9} {place} {kind} `{line.strip()}` -> `{spoilt.strip()}` {by}", flush=True)
            print(verdict, place, kind, line, spoilt, by, sep="\t", file=results, flush=True)
            if not asked.list and sum(total for _, total in sums.values()) == asked.count:
                break
    sums["all"] = [sum(found for found, _ in sums.values()), sum(total for _, total in sums.values())]
    for library, (found, total) in sums.items():
        print(f"{library:10} {found:4} of {total:4} found")


if __name__ == "__main__":
    main()
