"""What the tests of this folder run the program on, and how they compare what it leaves behind."""
import argparse
import os
import shutil
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
TINY = os.path.join(HERE, "..", "batch", "tiny")
TILES = os.path.join(HERE, "..", "worked", "tiles", "input")
TIME_LIMIT = 60  # seconds; a run takes a fraction of one
GRID = "DSAA\r\n7 7\r\n900 1500\r\n1900 2500\r\n1 49\r\n" + "".join(f"{i} " for i in range(1, 50)) + "\r\n"


class Run:
    """A command on a survey that lies in a folder of its own, with what it writes in "out" and its temporary files in "tmp"."""

    def __init__(self, name, command, output, options=(), inputs=TINY, changes=(), definition="tiny.inp"):
        self.name, self.command, self.output, self.options = name, command, output, list(options)
        self.inputs, self.changes, self.definition = inputs, changes, definition

    def lay_out(self, work, changes=()):
        """The survey anew, with changed lines, in an empty folder."""
        shutil.rmtree(work, ignore_errors=True)
        shutil.copytree(self.inputs, work)
        os.mkdir(os.path.join(work, "tmp"))
        with open(os.path.join(work, "data.grd"), "w", newline="") as grid:
            grid.write(GRID)
        self.change(work, [*self.changes, *changes])

    def change(self, work, changes):
        path = os.path.join(work, self.definition)
        with open(path, newline="") as file:
            lines = file.read().split("\r\n")
        for change in changes:
            label = change.split(":")[0]
            lines = [line for line in lines if line.split(":")[0].rstrip() != label]
            lines.insert(1, change)
        with open(path, "w", newline="") as file:
            file.write("\r\n".join(lines))

    def words(self, program):
        return [program, self.command, self.definition, "--output", self.output, *self.options, "--yes"]

    def start(self, program, work, **more):
        environment = {**os.environ, "TMPDIR": os.path.join(work, "tmp"), **more}
        return subprocess.Popen(self.words(program), cwd=work, env=environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, errors="replace")

    def go(self, program, work, **more):
        """Exit status and messages."""
        return ending_of(self.start(program, work, **more))


def ending_of(process):
    try:
        errors = process.communicate(timeout=TIME_LIMIT)[1]
        return process.returncode, errors
    except subprocess.TimeoutExpired:
        process.kill()
        return "no end", process.communicate()[1]


CREATE = Run("create", "create", "out")
GRIDS = Run("create, grids", "create", "out", changes=["Data file type: 1", "Obs data grid: data.grd"])
TILED = Run("create, tiled", "create", "out", inputs=TILES, definition="v5.inp",
            options=["--base-mesh", "base.msh", "--base-model", "base.sus", "--skip-tile", "01,01"])
SAVE = Run("save", "save", "out.inp")
LIMITS = Run("limits", "limits", "out.inp", options=["--from", "data"])


def tree(work):
    """Every file below a folder, with its bytes."""
    files = {}
    for folder, _, names in os.walk(work):
        for name in names:
            with open(os.path.join(folder, name), "rb") as file:
                files[os.path.relpath(os.path.join(folder, name), work)] = file.read()
    return files


def work_files(files):
    return sorted(name for name in files if os.path.basename(name).startswith("~"))


def options_of(count):
    """The command line of a program of this folder, with absolute paths and the folder `work` made anew."""
    parser = argparse.ArgumentParser()
    for name in ("program", "settings_writer", "shim", "work"):
        parser.add_argument(name, type=os.path.abspath)
    parser.add_argument("--count", type=int, default=count)
    parser.add_argument("--seed", type=int, default=1, help="of what is left to chance")
    options = parser.parse_args()
    shutil.rmtree(options.work, ignore_errors=True)
    os.makedirs(options.work)
    return options


class Faults:
    """Collects what was wrong, and tells it."""

    def __init__(self):
        self.count = 0

    def expect(self, holds, what):
        if not holds:
            self.count += 1
            print("LOST: " + what, file=sys.stderr)

    def expect_same(self, found, wanted, what):
        differing = sorted(name for name in {*found, *wanted} if found.get(name) != wanted.get(name))
        self.expect(not differing, f"{what}: not as it should be: {' '.join(differing[:5])}")


def row(*cells):
    print("| " + " | ".join(str(cell) for cell in cells) + " |", flush=True)
