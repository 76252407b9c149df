#!/usr/bin/env python3
"""Kills or interrupts programs at random moments, and looks at what is left and at what the next run makes of it.

usage: kills.py PROGRAM SETTINGS_WRITER SHIM WORK [--count N] [--seed N]

Prints a table; exits 1 when anything was lost. SHIM is not used.
"""
import json
import os
import random
import shutil
import signal
import subprocess
import sys
import time

from given_runs import CREATE, GRIDS, SAVE, TILED, Faults, ending_of, options_of, row, tree, work_files

# Enough cells for the writing to last.
LARGE = ["X Range: 1000 1400 5 80", "Y Range: 2000 2400 5 80", "Z Range: 0 300 20 15 1 0"]
OTHER = ["Error percent and floor: 5 3"]
STOPPED = "message: Stopped. What had been written stays, and is not complete\n"
DEFINITIONS = {"out.inp", "out/out.inp", "out/inversion.inp"}


def kill_at_random(process, duration, which, chance):
    time.sleep(chance.uniform(0, duration))
    process.send_signal(which)
    return ending_of(process)


class Killed:
    """A command that is killed while it replaces what it has written before from another definition."""

    def __init__(self, program, run, changes, work, faults):
        self.program, self.run, self.work, self.faults = program, run, work, faults
        run.lay_out(work, changes + OTHER)
        faults.expect(run.go(program, work)[0] == 0, f"{run.name}: does not run")
        self.old, old = tree(work), work + ".old"
        shutil.rmtree(old, ignore_errors=True)
        shutil.copytree(work, old)
        self.definition = os.path.join(work, run.definition)
        run.lay_out(work, changes)
        with open(self.definition, "rb") as file:
            self.text = file.read()
        shutil.rmtree(work)
        self.duration = min(self.timed_run() for _ in range(3))
        self.new = tree(work)

    def timed_run(self):
        self.lay_out()
        began = time.monotonic()
        self.faults.expect(self.run.go(self.program, self.work)[0] == 0, f"{self.run.name}: does not run")
        return time.monotonic() - began

    def lay_out(self):
        shutil.rmtree(self.work, ignore_errors=True)
        shutil.copytree(self.work + ".old", self.work)
        with open(self.definition, "wb") as file:
            file.write(self.text)

    def go(self, which, chance):
        self.lay_out()
        status, errors = kill_at_random(self.run.start(self.program, self.work), self.duration, which, chance)
        what = f"{self.run.name}, {which.name}"
        left = tree(self.work)
        self.judge_ending(what, which, status, errors, left)
        for name in sorted(set(left) - set(work_files(left))):
            self.faults.expect(left[name] in (self.old.get(name), self.new.get(name)), f"{what}: not whole: {name}")
        self.faults.expect(DEFINITIONS & set(left) == DEFINITIONS & set(self.old), f"{what}: a definition is gone")
        self.faults.expect(self.run.go(self.program, self.work)[0] == 0, f"{what}: does not run again")
        self.faults.expect_same(tree(self.work), self.new, what + ": the next run")
        return status != 0, bool(work_files(left))

    def judge_ending(self, what, which, status, errors, left):
        if which == signal.SIGKILL:
            self.faults.expect(status in (0, -which), f"{what}: ended with {status}: {errors}")
            return
        self.faults.expect(not work_files(left), f"{what}: left behind: {work_files(left)}")
        # Before the program has started there is nobody to say anything.
        started = status != -which or {**left, self.run.definition: b""} != {**self.old, self.run.definition: b""}
        good = status == 0 or (status == 130 and errors.endswith(STOPPED)) or not started
        self.faults.expect(good, f"{what}: ended with {status}: {errors}")


class KilledSettings:
    """A program that keeps one setting after the other, over those that another has kept."""

    def __init__(self, writer, work, faults):
        self.writer, self.work, self.faults = writer, work, faults
        self.file = os.path.join(work, "settings.json")
        self.started = 0

    def words(self, section, count):
        return [self.writer, self.file, section, "n", "some text", str(count)]

    def kept(self):
        with open(self.file, encoding="utf-8") as file:
            return json.load(file)["Brindlewood"]

    def go(self, which, chance):
        shutil.rmtree(self.work, ignore_errors=True)
        os.makedirs(self.work)
        subprocess.run(self.words("Other", 3), check=True)
        before = self.kept()["Other"]
        process = subprocess.Popen(self.words("Mine", 100), stderr=subprocess.PIPE)
        status, _ = kill_at_random(process, 0.2, which, chance)
        what = f"settings, {which.name}"
        self.faults.expect(status in (0, -which), f"{what}: ended with {status}")
        after, left = self.kept(), bool(work_files(tree(self.work)))
        mine = after.pop("Mine", {})
        self.faults.expect(after == {"Other": before}, f"{what}: another program's settings are gone")
        self.faults.expect(set(mine) == {f"n{i}" for i in range(1, len(mine) + 1)}, f"{what}: settings are gone")
        subprocess.run(self.words("Later", 1), check=True)
        self.faults.expect(set(tree(self.work)) == {"settings.json"}, f"{what}: the next run leaves files behind")
        return status != 0, left


def main():
    options = options_of(300)
    chance, faults = random.Random(options.seed), Faults()
    cases = [(run.name, Killed(options.program, run, changes, os.path.join(options.work, run.name.replace(", ", "_")), faults))
             for run, changes in ((CREATE, LARGE), (GRIDS, LARGE), (TILED, []), (SAVE, []))]
    cases.append(("settings", KilledSettings(options.settings_writer, os.path.join(options.work, "settings"), faults)))
    kinds = [(name, case, which) for name, case in cases for which in (signal.SIGKILL, signal.SIGINT)]
    row("command", "signal", "times", "before its end", "working file left for the next run", "lost")
    row(*["---"] * 6)
    for number, (name, case, which) in enumerate(kinds):
        times = len(range(number, options.count, len(kinds)))
        before = faults.count
        ended = [case.go(which, chance) for _ in range(times)]
        row(name, which.name, times, sum(early for early, _ in ended), sum(left for _, left in ended), faults.count - before)
    sys.exit(faults.count > 0)


if __name__ == "__main__":
    main()
