#!/usr/bin/env python3
"""Fuzzes each reader of the program for a time, two at once, from the project's own files and what earlier runs have found.

usage: run_fuzzers.py SECONDS [READER ...]

The seconds are those that a reader's process has the processor, so that other work on the machine takes nothing from them. Prints
a table and exits 1 when there was a find, which is kept as build/fuzz/finds/READER/*.
"""
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor

PROGRAM = "build/fuzz/bin/fuzz_readers"
CORPUS, FINDS, LOGS = "build/fuzz/corpus", "build/fuzz/finds", "build/fuzz/logs"
MEMORY = "/dev/shm" if os.path.isdir("/dev/shm") else None
AT_ONCE = 2
# A find is also an input that takes longer than this, or more memory, than any of its size may. The longest takes 2 s: room is left
# for a busy machine.
LIMITS = ["-timeout=10", "-rss_limit_mb=1024", "-malloc_limit_mb=256", "-max_len=8192"]
OPTIONS = ["-print_final_stats=1", *LIMITS]
INTERRUPTED = 72  # the exit code when its time is up
STATISTIC = re.compile(r"stat::(\w+):\s+(\d+)")
ARTIFACT = re.compile(r"Test unit written to (\S+)")


def folder(*parts):
    path = os.path.join(*parts)
    os.makedirs(path, exist_ok=True)
    return path


def seeds_of(reader):
    seeds = folder(CORPUS, reader + ".seeds")
    subprocess.run([PROGRAM, f"--reader={reader}", f"--seeds={seeds}"], check=True)
    return seeds


def cpu_seconds(process):
    """The time that a process has had the processor; 0 when it is gone."""
    try:
        with open(f"/proc/{process.pid}/stat", encoding="utf-8") as stat:
            user, system = stat.read().rpartition(")")[2].split()[11:13]
    except OSError:
        return 0.0
    return (int(user) + int(system)) / os.sysconf("SC_CLK_TCK")


def run(command, seconds, log):
    """Runs a reader until it has had its seconds. Its exit code and the seconds that it had."""
    had = 0.0
    with tempfile.TemporaryDirectory(dir=MEMORY, prefix="fuzz") as scratch:
        process = subprocess.Popen(command, stdout=log, stderr=log, env={**os.environ, "TMPDIR": scratch})
        try:
            while process.poll() is None and had < seconds:
                time.sleep(0.2)
                had = max(had, cpu_seconds(process))
        finally:
            process.send_signal(signal.SIGINT)  # which it takes for an orderly end
            process.wait()
    return process.returncode, had


def fuzz(reader, seconds, seeds):
    """Runs, their rate, the processor's seconds and the finds of one reader. The first find ends its run."""
    corpus, finds = folder(CORPUS, reader), folder(FINDS, reader)
    with open(os.path.join(folder(LOGS), reader + ".log"), "wb") as log:
        code, had = run([PROGRAM, f"--reader={reader}", f"-artifact_prefix={finds}/", *OPTIONS, corpus, seeds], seconds, log)
    with open(log.name, encoding="utf-8", errors="replace") as log:
        text = log.read()
    runs = int(dict(STATISTIC.findall(text)).get("number_of_executed_units", 0))
    found = [os.path.basename(path) for path in ARTIFACT.findall(text)]
    if code not in (0, INTERRUPTED) and not found:
        found = [f"exit code {code}, see {log.name}"]
    return reader, runs, runs / max(had, 1), had, found


def main():
    seconds = int(sys.argv[1])
    readers = sys.argv[2:] or subprocess.run([PROGRAM, "--list"], check=True, capture_output=True, text=True).stdout.split()
    seeds = {reader: seeds_of(reader) for reader in readers}
    print(f"{'reader':16}{'runs':>12}{'runs/s':>9}{'CPU s':>8}  finds", flush=True)
    any_found = False
    with ThreadPoolExecutor(AT_ONCE) as pool:
        for reader, runs, rate, had, found in pool.map(lambda reader: fuzz(reader, seconds, seeds[reader]), readers):
            any_found = any_found or bool(found)
            print(f"{reader:16}{runs:>12}{rate:>9.0f}{had:>8.0f}  {', '.join(found) or 'none'}", flush=True)
    return 1 if any_found else 0


if __name__ == "__main__":
    sys.exit(main())
