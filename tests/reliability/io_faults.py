#!/usr/bin/env python3
"""Lets every call that writes, opens, closes, renames, deletes or makes something fail in turn, and looks at what is left.

usage: io_faults.py PROGRAM SETTINGS_WRITER SHIM WORK [--count N]

PROGRAM is the batch program, SETTINGS_WRITER writes settings, SHIM (io_faults.c) is preloaded, WORK is emptied and used. With
--count an even sample of N calls of each command fails. Prints a table; exits 1 when anything was lost.
"""
import collections
import os
import shutil
import sys

from given_runs import CREATE, GRIDS, LIMITS, SAVE, TILED, Faults, Run, options_of, row, tree, work_files

KINDS = ["open", "write", "sync", "close", "rename", "mkdir", "truncate", "unlink"]
NEED_ROOM = {"open", "write", "mkdir"}
TOLERATED = {"unlink"}  # a temporary file that cannot be deleted costs nothing
OTHER = ["Error percent and floor: 5 3", "Misfit tolerance:  .05", "Sensor height definitions: 1 1 0"]  # another inversion


class Settings(Run):
    """Two settings, one after the other."""

    def words(self, program):
        return [program, self.output, "Two", "b", "2"]


def watch(program, run, work, shim, at=0, stays=False):
    log = work + ".log"
    if os.path.exists(log):
        os.remove(log)
    more = {"LD_PRELOAD": shim, "IO_FAULTS_FOLDER": work, "IO_FAULTS_LOG": log}
    if at:
        more["IO_FAULTS_AT"] = str(at)
    if stays:
        more["IO_FAULTS_STAYS"] = "1"
    status, errors = run.go(program, work, **more)
    calls = []
    if os.path.exists(log):
        with open(log, errors="replace") as lines:
            calls = [line.rstrip("\n").split("\t") for line in lines]
    return status, errors, calls


def targets_of(calls):
    """For each call the bare name of the file that it was for: a working file is named by what it becomes."""
    becomes = {source: os.path.basename(target) for _, kind, source, target in calls if kind == "rename"}
    return [becomes.get(path, os.path.basename(path)) for _, _, path, _ in calls]


def sample(calls, wanted):
    if not wanted or wanted >= len(calls):
        return calls
    return [calls[(2 * i + 1) * len(calls) // (2 * wanted)] for i in range(wanted)]


class Series:
    """All faults of one command: into an empty place, over what another inversion left there, and on a disk that stays full."""

    def __init__(self, program, run, work, shim, faults, count):
        self.program, self.run, self.work, self.shim, self.faults = program, run, work, shim, faults
        self.count = count
        self.tried = collections.Counter()

    def lay_out(self, over):
        shutil.rmtree(self.work, ignore_errors=True)
        if not over:
            self.run.lay_out(self.work)
            return
        shutil.copytree(self.before_folder, self.work)

    def prepare(self):
        """A whole run of each kind to compare with, and the numbered calls."""
        self.before_folder = self.work + ".before"
        self.run.lay_out(self.work, OTHER)
        self.faults.expect(self.run.go(self.program, self.work)[0] == 0, f"{self.run.name}: does not run")
        self.run.change(self.work, [line for line in self.original_lines()])
        shutil.rmtree(self.before_folder, ignore_errors=True)
        os.rename(self.work, self.before_folder)
        self.before = {False: None, True: tree(self.before_folder)}
        self.good, self.calls = {}, {}
        for over in (False, True):
            self.lay_out(over)
            if not over:
                self.before[False] = tree(self.work)
            status, errors, self.calls[over] = watch(self.program, self.run, self.work, self.shim)
            self.faults.expect(status == 0, f"{self.run.name}: fails without a fault: {errors}")
            self.good[over] = tree(self.work)

    def original_lines(self):
        """The lines of the definition that OTHER has changed, as they were."""
        labels = {line.split(":")[0] for line in OTHER}
        with open(os.path.join(self.run.inputs, self.run.definition), newline="") as file:
            lines = [line for line in file.read().split("\r\n") if line.split(":")[0].rstrip() in labels]
        return lines + [line for line in self.run.changes]

    def go(self):
        self.prepare()
        for over in (False, True):
            for stays in (False, True):
                calls = [int(number) for number, kind, _, _ in self.calls[over] if not stays or kind in NEED_ROOM]
                for at in sample(calls, self.count):
                    self.fail_at(at, over, stays)

    def fail_at(self, at, over, stays):
        self.lay_out(over)
        status, errors, calls = watch(self.program, self.run, self.work, self.shim, at, stays)
        if len(calls) < at:
            self.faults.expect(False, f"{self.run.name}: call {at} never came")
            return
        kind, path = calls[at - 1][1:3]
        what = f"{self.run.name}, call {at} ({kind} {os.path.relpath(path, self.work)}){', over' * over}{', full' * stays}"
        self.tried["full" if stays else kind] += 1
        left = tree(self.work)
        self.judge(what, kind, at, path, over, stays, status, errors, left)
        again, errors = self.run.go(self.program, self.work)
        self.faults.expect(again == 0, f"{what}: does not run again: {errors}")
        self.faults.expect_same(tree(self.work), self.good[over], what + ": the next run")

    def judge(self, what, kind, at, path, over, stays, status, errors, left):
        faults, good, before = self.faults, self.good[over], self.before[over]
        self.judge_ending(what, kind, at, over, path, status, errors)
        temporary = work_files(left)
        faults.expect(not temporary or kind in TOLERATED, f"{what}: left behind: {' '.join(temporary)}")
        for name in sorted(set(left) - set(temporary)):
            faults.expect(left[name] in (good.get(name), before.get(name)), f"{what}: not whole: {name}")
        if status == 0:
            faults.expect_same({name: left[name] for name in set(left) - set(temporary)}, good, f"{what}: said to be done")

    def judge_ending(self, what, kind, at, over, path, status, errors):
        if kind in TOLERATED and status == 0:
            return
        self.faults.expect(status == 1, f"{what}: ended with {status}")
        message = [line for line in errors.splitlines() if line.startswith("message: ") and ": " in line[9:]]
        near = 30 if self.run is TILED else 0  # files are copied beside the main work there
        names = targets_of(self.calls[over])[max(at - 1 - near, 0):at + near]
        if os.path.dirname(path) == os.path.join(self.work, "tmp"):  # a working copy of a grid, named anew in each run
            names = [os.path.basename(path)]
        self.faults.expect(any(name in line for line in message for name in names), f"{what}: {names[:1]} is not named: {errors}")


class SettingsSeries(Series):
    """Settings that cannot be kept cost nothing else, so the program goes on without a word."""

    def original_lines(self):
        return []

    def lay_out(self, over):
        shutil.rmtree(self.work, ignore_errors=True)
        os.makedirs(os.path.join(self.work, "tmp"))
        if over:
            os.mkdir(os.path.join(self.work, "kept"))
            with open(os.path.join(self.work, "kept", "settings.json"), "w") as file:
                file.write('{\n    "Brindlewood": {\n        "One": {\n            "a": "1"\n        }\n    }\n}\n')

    def prepare(self):
        self.before, self.good, self.calls = {}, {}, {}
        for over in (False, True):
            self.lay_out(over)
            self.before[over] = tree(self.work)
            status, _, self.calls[over] = watch(self.program, self.run, self.work, self.shim)
            self.faults.expect(status == 0, "settings: fails without a fault")
            self.good[over] = tree(self.work)

    def judge_ending(self, what, kind, at, over, path, status, errors):
        self.faults.expect(status == 1 and errors == "", f"{what}: ended with {status}: {errors}")


def main():
    options = options_of(0)
    faults = Faults()
    row("command", *KINDS, "full disk", "lost")
    row(*["---"] * (len(KINDS) + 3))
    settings = Settings("settings", "", os.path.join("kept", "settings.json"))
    for run in (CREATE, GRIDS, TILED, SAVE, LIMITS, settings):
        before = faults.count
        kind, program = (SettingsSeries, options.settings_writer) if run is settings else (Series, options.program)
        folder = os.path.join(options.work, run.command or "settings")
        series = kind(program, run, folder, options.shim, faults, options.count)
        series.go()
        row(run.name, *(series.tried[kind] for kind in KINDS), series.tried["full"], faults.count - before)
    sys.exit(faults.count > 0)


if __name__ == "__main__":
    main()
