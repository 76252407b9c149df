#!/usr/bin/env python3
"""Checks of the tree that no compiler makes: layers, the share of tests, paths of one machine.

Prints each fault with its place and exits 1 when there is one.
"""
import os
import re
import subprocess
import sys

# A folder of src includes only folders before it; the last two, the programs, never meet.
LAYERS = ["support", "host", "form", "utilities", "definition", "mesh", "model", "grid", "data", "rules", "creation", "app",
          "desktop", "batch"]
PROGRAMS = {"desktop", "batch"}
CODE = (".cpp", ".h")
SHARE_WANTED = (25, 40)  # lines of tests per hundred lines of code
SHARE_ALLOWED = (20, 45)

INCLUDE = re.compile(r'\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
QT = re.compile(r"Q[A-Z]|Qt")
MACHINE_PATH = re.compile(r"(?<![\w.])/(?:home|root|Users|work|tmp/w)/\w")


def tracked():
    """The files of the project, by git."""
    listed = subprocess.run(["git", "-c", "safe.directory=" + os.getcwd(), "ls-files"], capture_output=True, text=True, check=True)
    return [path for path in listed.stdout.splitlines() if os.path.isfile(path)]


def lines_of(path):
    with open(path, encoding="utf-8", errors="replace") as source:
        return source.read().splitlines()


def code_lines(path):
    """Lines that hold code: neither blank nor a whole-line comment."""
    return sum(1 for line in lines_of(path) if line.strip() and not line.strip().startswith("//"))


def layer_fault(folder, quoted, system):
    """What is wrong with one include of a source in `folder`, or nothing."""
    if system:
        return "only desktop may include Qt" if QT.match(system) and folder != "desktop" else None
    target, slash, _ = quoted.partition("/")
    if QT.match(target):
        return None if folder == "desktop" else "only desktop may include Qt"
    if not slash:
        return None
    if target not in LAYERS:
        return f"no such folder of src: {target}"
    if {folder, target} == PROGRAMS:
        return "desktop and batch never meet"
    if LAYERS.index(target) > LAYERS.index(folder):
        return f"{folder} may not include {target}, which comes after it"
    return None


def layer_faults(files):
    for path in files:
        parts = path.split("/")
        if parts[0] != "src" or len(parts) < 3 or not path.endswith(CODE):
            continue
        if parts[1] not in LAYERS:
            yield f"{path}: {parts[1]} is no folder of the architecture"
            continue
        for number, line in enumerate(lines_of(path), 1):
            include = INCLUDE.match(line)
            fault = include and layer_fault(parts[1], include[1] or "", include[2])
            if fault:
                yield f"{path}:{number}: {fault}"


def share_faults(files):
    sources = [path for path in files if path.endswith(CODE)]
    tests = sum(code_lines(path) for path in sources if path.startswith("tests/"))
    product = sum(code_lines(path) for path in sources if path.startswith("src/"))
    share = 100 * tests / max(product, 1)
    print(f"test share: {tests} lines of tests to {product} of code, {share:.0f} % "
          f"(wanted {SHARE_WANTED[0]} to {SHARE_WANTED[1]} %)")
    if not SHARE_ALLOWED[0] <= share <= SHARE_ALLOWED[1]:
        yield f"the share of tests is outside {SHARE_ALLOWED[0]} to {SHARE_ALLOWED[1]} %"


def path_faults(files):
    for path in files:
        if path.endswith((".csv", ".xyz")):
            continue  # survey data
        for number, line in enumerate(lines_of(path), 1):
            if MACHINE_PATH.search(line):
                yield f"{path}:{number}: names a path of one machine: {line.strip()[:80]}"


def main():
    os.chdir(os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
    files = tracked()
    faults = [*layer_faults(files), *share_faults(files), *path_faults(files)]
    for fault in faults:
        print(fault)
    return 1 if faults else 0


sys.exit(main())
