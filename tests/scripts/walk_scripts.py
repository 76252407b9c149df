#!/usr/bin/env python3
"""Runs the scripts of created inversion folders under a command interpreter, with stand-ins for the solvers and tools.

usage: walk_scripts.py PROGRAM SURVEY WORK

PROGRAM creates the folders, SURVEY holds tiny.inp and its data, WORK is emptied and used. Each case makes a coarse inversion,
runs it, refines it in tiles, runs the tiles twice (the second run restarts) and puts them together anew. Exits 1 when a program
is not called as it should be or lacks a file, and 77 when there is no interpreter or no compiler for the stand-ins.
"""
import difflib
import os
import re
import shutil
import subprocess
import sys

SKIPPED = 77
TIME_LIMIT = 120  # seconds a script may take
STAND_INS = """DMXextract QVextract DMXnullvol QVnullvol magfor3d gzfor3d qvpre3d DMXdelreg pfweight magsen3d gzsen3d qvsen3d
    qvsen3d_cluster_controller maginv3d gzinv3d qvinv3d dmxerror QVerror DMXinsert QVinsert QVsen3D_RPCServer""".split()
SERVICE = "QVsen3D_RPCServer"  # started beside the script, so its place in the log is open

# Four tiles of uneven size.
REFINED = """Refinement Mode: 1; X Range: 1000 1400 50 8; Y Range: 2000 2400 50 8; Z Range: {} 25 8 1 0;
    X tile size: 8; Y tile size: 8; Tile overlap: 2; Tile X/Y blend: 1; Tile Z blend: 1; Tile min points: 0;
    Tile use reference: 1; Tile coarse model: 1"""


class Case:
    """What a method calls, in its order, and how its input files look (the letters are told in stand_in.c)."""

    def __init__(self, name, changes, sensitivity, stem, shapes, tile_shape, data="mag", matrices="qvinv3d.mtx",
                 base="coarse"):
        own = stem == "qvinv3d"
        self.refined = REFINED.format("-200 0" if own else "100 300")  # the own solver's hangs from the ground
        tool, error = ("QV", "QVerror") if own else ("DMX", "dmxerror")
        forward = {"maginv3d": "magfor3d", "gzinv3d": "gzfor3d", "qvinv3d": "qvpre3d"}[stem]
        outside = [tool + "extract", tool + "nullvol", forward] + ["DMXdelreg"] * (not own)
        end = [error, tool + "insert"]
        self.name, self.changes, self.data, self.matrices, self.base = name, changes, data, matrices, base
        self.shapes, self.tile_shapes = shapes, {**shapes, stem: tile_shape}
        self.cluster = own  # the tiles of this solver always use it
        self.coarse = sensitivity + [f"{stem} {stem}.inp"] + [error] * own
        in_tile = ["qvsen3d_cluster_controller"] if own else sensitivity
        self.first = outside + in_tile + [f"{stem} {stem}.inp"] + end
        self.second = outside * own + [f"{stem} {stem}.restart"] + end  # the own solver's residual is made anew each time
        self.insertion = end[1:]


CASES = [
    Case("classic", "Inversion method: 0", ["magsen3d magsen3d.inp"], "maginv3d",
         {"magsen3d": "ffmnm.m", "maginv3d": "0nnffmmmmn"}, "0nnffmmmmmmn"),
    Case("marked", "Inversion method: 6; Number of Threads: 3", ["pfweight mag_weights.inp", "magsen3d magsen3d.inp"], "maginv3d",
         {"pfweight": ".ffmnm", "magsen3d": "ffmf.mn", "maginv3d": "nnffmmmmmm.m"}, "0nnffmmmmmmn"),
    Case("first", "Inversion method: 1; Obs data types: 0 -1 -1", ["gzsen3d"], "gzinv3d",
         {"gzinv3d": "0nnnfmffmmmmmn"}, "0nnnfmffmmmmmn", data="grav"),
    Case("own", "Inversion method: 4", ["qvsen3d qvsen3d.inp"], "qvinv3d",
         {"qvsen3d": "ffmnm.mn", "qvinv3d": "0nnffmmmmmn"}, "0nnffmmmmmf"),
    Case("own_tensor", "Inversion method: 4; Obs data types: 2 5 -1; Obs data definitions: 2 0 1 0 1 2 3 4 3 0 0",
         ["qvsen3d qvsen3d.inp"], "qvinv3d", {"qvsen3d": "ffmnm.mn", "qvinv3d": "0nnffmmmmmn"}, "0nnffmmmmmf", data="grav",
         matrices="QVinv3D_Gzz.mtx QVinv3D_Gne.mtx", base="half%OS%&co"),  # what the interpreter would expand and part
]
# The report on the whole names a file of one solver, which only the tiles have.
LAST_REPORT = ["tiles: QVerror", "    lacks qvinv3d.pre"]


class NotStarted(Exception):
    """The interpreter could not start a stand-in that is there, as happens once in some thousand calls on a busy machine."""


class Interpreter:
    """Runs scripts one at a time, with a home and settings of its own."""

    def __init__(self, work):
        self.log = os.path.join(work, "calls.log")
        tools = os.path.join(work, "tools")
        os.makedirs(tools)
        source = os.path.join(os.path.dirname(os.path.abspath(__file__)), "stand_in.c")
        built = os.path.join(work, "stand_in.exe")
        subprocess.run(["x86_64-w64-mingw32-gcc", "-O1", "-Wall", "-Wextra", "-Werror", "-s", "-o", built, source], check=True)
        for name in STAND_INS:
            os.link(built, os.path.join(tools, name + ".exe"))
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": work, "WINEPREFIX": os.path.join(work, "prefix"), "WINEARCH": "win64",
            "WINEDEBUG": "-all", "WINEDLLOVERRIDES": "winemenubuilder.exe,mscoree,mshtml=", "WINEPATH": drive_path(tools),
            "STAND_IN_LOG": drive_path(self.log),
        }
        os.makedirs(self.environment["WINEPREFIX"])
        # Left running between scripts, as starting it takes longer than a script; should this program die, it soon ends.
        self.server("-p30")
        self.start({}, work, "wineboot", "--init")

    def server(self, *options):
        subprocess.run(["wineserver", *options], env=self.environment, check=False, timeout=TIME_LIMIT)

    def start(self, more, folder, *words):
        """Standard error, where the interpreter says what it could not do."""
        with open(self.log + ".errors", "w+", errors="replace") as errors:
            subprocess.run(["wine", *words], cwd=folder, env={**self.environment, **more}, stdin=subprocess.DEVNULL,
                           stdout=subprocess.DEVNULL, stderr=errors, timeout=TIME_LIMIT, check=False)
            errors.seek(0)
            return [line.rstrip() for line in errors]

    def run(self, folder, script, shapes, matrices):
        """What was called, and what was wrong with each call."""
        open(self.log, "w").close()
        more = {"SHAPE_" + program: shape for program, shape in shapes.items()}
        said = self.start({**more, "MATRICES": matrices}, folder, "cmd", "/c", script)
        for program in re.findall(r"Can't recognize '(\w+)", "\n".join(said)):
            if program in STAND_INS:
                raise NotStarted(f"{script}: {program}")
        with open(self.log) as log:
            calls = [shortened(line.rstrip()) for line in log]
        return calls + [f"{script} said: {line}" for line in said if "wine32" not in line]

    def end(self):
        self.server("-k")
        self.server("-w")


def drive_path(path):
    return "Z:" + path.replace("/", "\\")


def shortened(line):
    """A call without its arguments, but for an input file."""
    words = line.split()
    if line.startswith(" ") or len(words) < 3:
        return line
    return " ".join(words[:3] if words[2].endswith((".inp", ".restart")) else words[:2])


def definition(survey, changes):
    """The survey's definition with lines in place of those with the same labels."""
    with open(os.path.join(survey, "tiny.inp"), newline="") as file:
        lines = file.read().split("\r\n")
    for change in (change.strip() for change in changes.split(";")):
        lines = [line for line in lines if not line.startswith(change[: change.index(":") + 1])]
        lines.insert(lines.index("[Comments]"), change)
    return "\r\n".join(lines)


class Walk:
    """The folders of one case; gathers what differs from what should be."""

    def __init__(self, program, survey, work, interpreter, case):
        self.program, self.survey, self.interpreter, self.case = program, survey, interpreter, case
        self.folder, self.faults, self.calls, self.services = os.path.join(work, case.name), [], 0, 0
        shutil.rmtree(self.folder, ignore_errors=True)
        os.makedirs(self.folder)
        for name in ("data.csv", "ground.xyz"):
            shutil.copy(os.path.join(survey, name), self.folder)

    def create(self, name, changes, *more):
        with open(os.path.join(self.folder, name + ".inp"), "w", newline="") as file:
            file.write(definition(self.survey, ";".join([self.case.changes, *changes])))
        subprocess.run([self.program, "create", name + ".inp", "--output", name, *more], cwd=self.folder, check=True,
                       stdout=subprocess.DEVNULL)

    def expect(self, folder, script, shapes, calls):
        done = self.interpreter.run(os.path.join(self.folder, folder), script, shapes, self.case.matrices)
        self.services += sum(line.endswith(SERVICE) for line in done)
        done = [line for line in done if not line.endswith(SERVICE)]
        self.calls += len(done)
        if done != calls:
            self.faults += [f"{self.case.name}: {script}", *difflib.ndiff(calls, done)]

    def walk(self):
        case = self.case
        self.create(case.base, [])
        self.expect(case.base, "run_inversion.bat", case.shapes, [case.base + ": " + call for call in case.coarse])
        # From the last row and column back to the first; the first column's second tile is left out.
        self.create("tiles", [case.refined], "--base-mesh", case.base + "/mesh", "--skip-tile", "1,2", "--tile-order", "1,1,1",
                    "--base-model", case.base + "/model." + ("den" if case.data == "grav" else "sus"))
        tiles = ("tile0202", "tile0201", "tile0101")
        for script, calls in (("iter_all.bat", case.first), ("iter_all.bat", case.second), ("insert_all.bat", case.insertion)):
            in_tiles = [f"{tile}: {call}" for tile in tiles for call in calls]
            self.expect("tiles", script, case.tile_shapes, in_tiles + LAST_REPORT)
        if bool(self.services) != case.cluster:
            self.faults.append(f"{case.name}: the cluster's service was started {self.services} times")


def faults_of(program, survey, work, interpreter, case):
    for _ in range(3):
        walk = Walk(program, survey, work, interpreter, case)
        try:
            walk.walk()
            print(case.name, "calls:", walk.calls)
            return walk.faults
        except NotStarted as fault:
            print(case.name, "starts anew, as a program did not start:", fault)
    return [f"{case.name}: programs do not start"]


def main(program, survey, work):
    for tool in ("wine", "wineserver", "x86_64-w64-mingw32-gcc"):
        if not shutil.which(tool):
            print("skipped: no", tool)
            return SKIPPED
    program, survey, work = (os.path.abspath(path) for path in (program, survey, work))
    shutil.rmtree(work, ignore_errors=True)
    interpreter = Interpreter(work)
    faults = []
    try:
        for case in CASES:
            faults += faults_of(program, survey, work, interpreter, case)
    finally:
        interpreter.end()
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
