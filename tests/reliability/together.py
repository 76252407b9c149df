#!/usr/bin/env python3
"""Lets two programs write in one place at the same time.

usage: together.py PROGRAM SETTINGS_WRITER SHIM WORK [--count N]

Prints a table; exits 1 when anything was lost. SHIM is not used.
"""
import json
import os
import shutil
import subprocess
import sys
import time

from given_runs import CREATE, TILED, TIME_LIMIT, Faults, Run, ending_of, options_of, row, tree
from kills import LARGE

REFUSED = "another program is writing an inversion into the folder "
OTHER = "Error percent and floor: 5 3"


class Other(Run):
    """The run of another definition into the same folder."""

    def __init__(self, run):
        super().__init__(run.name, run.command, run.output, run.options, run.inputs, run.changes, "other.inp")


def output_of(work):
    return {name: content for name, content in tree(work).items() if name.startswith("out/")}


def two_creates(program, run, changes, work, faults, times):
    """How often one was refused."""
    other, alone = Other(run), []
    run.lay_out(work, changes)
    shutil.copy(os.path.join(work, run.definition), os.path.join(work, other.definition))
    other.change(work, [OTHER])
    for one in (run, other):
        faults.expect(one.go(program, work)[0] == 0, f"{run.name}: does not run")
        alone.append(output_of(work))
        shutil.rmtree(os.path.join(work, "out"))
    refused = 0
    for time_number in range(times):
        processes = []
        for one in (run, other):
            processes.append(one.start(program, work))
            time.sleep(0.002 * (time_number % 5))
        ended = []
        for process in processes:
            status, errors = ending_of(process)
            ended.append(status)
            faults.expect(status == 0 or (status == 1 and REFUSED in errors), f"{run.name}: ended with {status}: {errors}")
        refused += 1 in ended
        good = [alone[i] for i in range(2) if ended[i] == 0]
        faults.expect(good != [] and output_of(work) in good, f"{run.name}: the folder is neither program's")
        shutil.rmtree(os.path.join(work, "out"))
    return refused


def two_writers(writer, work, faults, times, killed):
    """Both keep settings of their own; a third is killed meanwhile, if wanted."""
    count = 50
    for _ in range(times):
        shutil.rmtree(work, ignore_errors=True)
        os.makedirs(work)
        path = os.path.join(work, "settings.json")
        start = lambda section: subprocess.Popen([writer, path, section, "n", "text", str(count)])
        processes = [start("One"), start("Two")]
        if killed:
            third = start("Three")
            time.sleep(0.02)
            third.kill()
            third.wait()
        for process in processes:
            faults.expect(process.wait(timeout=TIME_LIMIT) == 0, "settings: could not be kept")
        with open(path, encoding="utf-8") as file:
            kept = json.load(file)["Brindlewood"]
        names = {f"n{i}" for i in range(1, count + 1)}
        faults.expect(set(kept["One"]) == names and set(kept["Two"]) == names, "settings: some are gone")
        subprocess.run([writer, path, "One", "n", "text"], check=True)
        faults.expect(set(tree(work)) == {"settings.json"}, f"settings: left behind: {sorted(tree(work))}")


def main():
    options = options_of(50)
    faults = Faults()
    row("two programs", "times", "one was refused", "lost")
    row(*["---"] * 4)
    for run, changes in ((CREATE, LARGE), (TILED, [])):
        before = faults.count
        refused = two_creates(options.program, run, changes, os.path.join(options.work, "create"), faults, options.count)
        row(run.name + " into one folder", options.count, refused, faults.count - before)
    for killed in (False, True):
        before = faults.count
        two_writers(options.settings_writer, os.path.join(options.work, "settings"), faults, options.count, killed)
        row("settings" + ", and a third that is killed" * killed, options.count, 0, faults.count - before)
    sys.exit(faults.count > 0)


if __name__ == "__main__":
    main()
