#!/usr/bin/env python3
"""Runs the scripts of created inversion folders under a command interpreter, with stand-ins for the solvers and tools.

usage: walk_scripts.py PROGRAM SURVEY WORK

PROGRAM creates the folders, SURVEY holds tiny.inp and its data, WORK is emptied and used. Each case makes a coarse inversion,
runs it, refines it in tiles, runs the tiles twice (the second run restarts) and puts them together anew. Exits 1 when a program
is not called as it should be or lacks a file, and 77 when there is no interpreter or no compiler for the stand-ins.
"""
import difflib
import os
import shutil
import subprocess
import sys

TIME_LIMIT = 120  # seconds a script may take
MISSING = 77
STAND_INS = """DMXextract QVextract DMXnullvol QVnullvol magfor3d gzfor3d qvpre3d DMXdelreg pfweight magsen3d gzsen3d qvsen3d
    qvsen3d_cluster_controller maginv3d gzinv3d qvinv3d dmxerror QVerror DMXinsert QVinsert QVsen3D_RPCServer""".split()

REFINED = """Refinement Mode: 1; X Range: 1000 1400 50 8; Y Range: 2000 2400 50 8; Z Range: 100 300 25 8 1 0;
    X tile size: 6; Y tile size: 6; Tile overlap: 1; Tile X/Y blend: 1; Tile Z blend: 2; Tile min points: 0;
    Tile use reference: 1; Tile coarse model: 1"""


class Case:
    """What a method calls, in its order, and how its input files look (the letters are told in stand_in.c)."""

    def __init__(self, method, changes, sensitivity, stem, shapes, tile_shape):
        own = stem == "qvinv3d"
        tool, error = ("QV", "QVerror") if own else ("DMX", "dmxerror")
        forward = {"maginv3d": "magfor3d", "gzinv3d": "gzfor3d", "qvinv3d": "qvpre3d"}[stem]
        outside = [tool + "extract", tool + "nullvol", forward] + ["DMXdelreg"] * (not own)
        end = [error, tool + "insert"]
        self.name, self.changes = f"method_{method}", f"Inversion method: {method}; {changes}"
        self.shapes, self.tile_shapes = shapes, {**shapes, stem: tile_shape}
        self.coarse = sensitivity + [f"{stem} {stem}.inp"] + [error] * own
        self.first = outside + sensitivity + [f"{stem} {stem}.inp"] + end
        self.second = outside * own + [f"{stem} {stem}.restart"] + end  # the own solver's data are made anew each time
        self.insertion = end[1:]
        self.model = "model.den" if stem == "gzinv3d" else "model.sus"


CASES = [
    Case(0, "", ["magsen3d magsen3d.inp"], "maginv3d", {"magsen3d": "ffmnm.m", "maginv3d": "0nnffmmmmn"}, "0nnffmmmmmmn"),
    Case(6, "Number of Threads: 3", ["pfweight mag_weights.inp", "magsen3d magsen3d.inp"], "maginv3d",
         {"pfweight": ".ffmnm", "magsen3d": "ffmf.mn", "maginv3d": "nnffmmmmmm.m"}, "0nnffmmmmmmm"),
    Case(1, "Obs data types: 0 -1 -1", ["gzsen3d"], "gzinv3d", {"gzinv3d": "0nnnfmffmmmmmn"}, "0nnnfmffmmmmmn"),
    Case(4, "", ["qvsen3d qvsen3d.inp"], "qvinv3d", {"qvsen3d": "ffmnm.mn", "qvinv3d": "0nnffmmmmmn"}, "0nnffmmmmmm"),
]
# The total report names a file that only the tiles have, of a solver that only one method runs.
LAST_REPORT = ["tiles: QVerror", "    lacks qvinv3d.pre"]


class Interpreter:
    """Runs scripts one at a time, with a home and settings of its own."""

    def __init__(self, work):
        self.tools, self.log = os.path.join(work, "tools"), os.path.join(work, "calls.log")
        os.makedirs(self.tools)
        source = os.path.join(os.path.dirname(os.path.abspath(__file__)), "stand_in.c")
        built = os.path.join(work, "stand_in.exe")
        subprocess.run(["x86_64-w64-mingw32-gcc", "-O1", "-Wall", "-Wextra", "-Werror", "-s", "-o", built, source], check=True)
        for name in STAND_INS:
            os.link(built, os.path.join(self.tools, name + ".exe"))
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": work, "WINEPREFIX": os.path.join(work, "prefix"), "WINEARCH": "win64",
            "WINEDEBUG": "-all", "WINEDLLOVERRIDES": "winemenubuilder.exe,mscoree,mshtml=", "WINEPATH": self.drive(self.tools),
            "STAND_IN_LOG": self.drive(self.log), "MATRICES": "qvinv3d.mtx",
        }
        self.command(work, {}, "wineboot", "--init")

    @staticmethod
    def drive(path):
        return "Z:" + path.replace("/", "\\")

    def command(self, folder, more, *words):
        """The lines of standard error; the interpreter says there what it could not do."""
        child = subprocess.Popen(["wine", *words], cwd=folder, env={**self.environment, **more}, stdin=subprocess.DEVNULL,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, errors="replace")
        try:
            return child.communicate(timeout=TIME_LIMIT)[1].splitlines()
        except subprocess.TimeoutExpired:
            child.kill()
            raise

    def run(self, folder, script, shapes):
        """What was called, with its input file, and what was wrong with each call."""
        open(self.log, "w").close()
        shown = self.command(folder, {"SHAPE_" + program: shape for program, shape in shapes.items()}, "cmd", "/c", script)
        with open(self.log) as log:
            return [short(line.rstrip()) for line in log] + [f"{script} said: {line}" for line in shown if "wine32" not in line]

    def end(self):
        subprocess.run(["wineserver", "-k"], env=self.environment, check=False)
        subprocess.run(["wineserver", "-w"], env=self.environment, check=False, timeout=TIME_LIMIT)


def short(line):
    words = line.split()
    if line.startswith(" ") or len(words) < 3:
        return line
    return " ".join(words[:3] if words[2].endswith((".inp", ".restart")) else words[:2])


def definition(survey, changes):
    """The survey's definition with lines put in place of those with the same labels."""
    lines = open(os.path.join(survey, "tiny.inp"), newline="").read().split("\r\n")
    for change in (change.strip() for change in changes.split(";") if change.strip()):
        label = change[: change.index(":") + 1]
        lines = [line for line in lines if not line.startswith(label)]
        lines.insert(lines.index("[Comments]"), change)
    return "\r\n".join(lines)


class Run:
    """The folders of one case; gathers what differs from what should be."""

    def __init__(self, program, survey, work, interpreter, case):
        self.program, self.survey, self.interpreter, self.case = program, survey, interpreter, case
        self.folder, self.faults, self.calls = os.path.join(work, case.name), [], 0
        os.makedirs(self.folder)
        for name in ("data.csv", "ground.xyz"):
            shutil.copy(os.path.join(survey, name), self.folder)

    def create(self, name, changes, *more):
        with open(os.path.join(self.folder, name + ".inp"), "w", newline="") as file:
            file.write(definition(self.survey, self.case.changes + ";" + changes))
        subprocess.run([self.program, "create", name + ".inp", "--output", name, *more], cwd=self.folder, check=True,
                       stdout=subprocess.DEVNULL)

    def expect(self, folder, script, shapes, calls):
        done = self.interpreter.run(os.path.join(self.folder, folder), script, shapes)
        self.calls += len(done)
        if done != calls:
            self.faults += [f"{self.case.name}: {script}", *list(difflib.ndiff(calls, done))]


def walk(run, case):
    run.create("coarse", "")
    run.expect("coarse", "run_inversion.bat", case.shapes, ["coarse: " + call for call in case.coarse])
    # From the last row and column back to the first; the first column's second tile is left out.
    run.create("tiles", REFINED, "--base-mesh", "coarse/mesh", "--base-model", "coarse/" + case.model, "--skip-tile", "1,2",
               "--tile-order", "1,1,1")
    tiles = ("tile0202", "tile0201", "tile0101")
    for script, calls in (("iter_all.bat", case.first), ("iter_all.bat", case.second), ("insert_all.bat", case.insertion)):
        in_tiles = [f"{tile}: {call}" for tile in tiles for call in calls]
        run.expect("tiles", script, case.tile_shapes, in_tiles + LAST_REPORT)


def main(program, survey, work):
    for tool in ("wine", "wineserver", "x86_64-w64-mingw32-gcc"):
        if not shutil.which(tool):
            print("skipped: no", tool)
            return MISSING
    shutil.rmtree(work, ignore_errors=True)
    interpreter = Interpreter(os.path.abspath(work))
    faults = []
    try:
        for case in CASES:
            run = Run(os.path.abspath(program), os.path.abspath(survey), os.path.abspath(work), interpreter, case)
            walk(run, case)
            print(case.name, "calls:", run.calls)
            faults += run.faults
    finally:
        interpreter.end()
    print("\n".join(faults))
    return 1 if faults else 0


sys.exit(main(*sys.argv[1:]))
