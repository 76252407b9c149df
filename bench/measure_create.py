#!/usr/bin/env python3
"""Measures whole creations: wall time and peak memory of the program, of the script peers/create.py and of the parts chained.

Prints a line "NAME VALUE UNIT" for each measurement.
"""
import json
import os
import shutil
import subprocess
import sys
import tempfile
import time

import make_create_inputs

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
PROGRAM = os.path.join(ROOT, "build/bin/zeb_qvinv3d_batch")
PARTS = os.path.join(ROOT, "build/bench/bin/create_bench")
SCRIPT = os.path.join(ROOT, "bench/peers/create.py")
INPUTS = os.path.join(ROOT, "build/bench/inputs")

# name: readings, points of the ground, cells of the mesh; repetitions of the program and of the script
CASES = {
    "tiny": (100, 100, (10, 10, 10), 20, 3),
    "quarter": (250_000, 250_000, (128, 128, 64), 3, 0),
    "whole": (1_000_000, 1_000_000, (256, 256, 64), 3, 1),
    "fourfold": (4_000_000, 4_000_000, (512, 512, 64), 1, 0),
}


def run_once(command, output):
    """Seconds and peak megabytes of one run into a fresh folder."""
    shutil.rmtree(output, ignore_errors=True)
    started = time.perf_counter()
    with tempfile.TemporaryFile() as said:
        process = subprocess.Popen(command, stdout=said, stderr=said)
        _, status, usage = os.wait4(process.pid, 0)
        seconds = time.perf_counter() - started
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            said.seek(0)
            raise RuntimeError(f"{' '.join(command)} exited {process.returncode}: {said.read().decode(errors='replace')[-500:]}")
    return seconds, usage.ru_maxrss / 1024


def measure(name, command, output, repetitions):
    runs = [run_once(command, output) for _ in range(repetitions)]
    if runs:
        print(name, f"{min(run[0] for run in runs):.4f} s", flush=True)
        print(f"{name}_memory", f"{max(run[1] for run in runs):.0f} MB", flush=True)


def measure_parts(definition):
    """The parts of the whole creation within one process."""
    result = subprocess.run([PARTS, "--benchmark_format=json", "--benchmark_repetitions=3"], check=True, capture_output=True,
                            env={**os.environ, "CREATE_DEFINITION": definition})
    times = [row["real_time"] for row in json.loads(result.stdout)["benchmarks"] if row["run_type"] == "iteration"]
    print("floor_parts_chained", f"{min(times):.1f} ms", flush=True)


def main():
    for case in sys.argv[1:] or CASES:
        readings, points, cells, of_program, of_script = CASES[case]
        folder = os.path.join(INPUTS, case)
        definition = make_create_inputs.make(folder, readings, points, cells)
        output = os.path.join(folder, "out")
        measure(f"create_{case}", [PROGRAM, "create", definition, "--output", output], output, of_program)
        measure(f"script_{case}", ["/usr/bin/python3", SCRIPT, definition, output], output, of_script)
        if case == "whole":
            measure_parts(definition)


if __name__ == "__main__":
    main()
