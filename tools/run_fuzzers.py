#!/usr/bin/env python3
"""Fuzzes each reader of the program for a time, two at once, from the project's own files and what earlier runs have found.

usage: run_fuzzers.py SECONDS [READER ...]

Prints a table and exits 1 when there was a find, which is kept as build/fuzz/finds/READER/*.
"""
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

PROGRAM = "build/fuzz/bin/fuzz_readers"
CORPUS, FINDS, LOGS = "build/fuzz/corpus", "build/fuzz/finds", "build/fuzz/logs"
AT_ONCE = 2
# A find is also an input that takes longer than this, or more memory, than any of its size may.
LIMITS = ["-timeout=5", "-rss_limit_mb=1024", "-malloc_limit_mb=256", "-max_len=8192"]
STATISTIC = re.compile(r"stat::(\w+):\s+(\d+)")


def folder(*parts):
    path = os.path.join(*parts)
    os.makedirs(path, exist_ok=True)
    return path


def fuzz(reader, seconds):
    """Runs, their rate and the finds of one reader. The first find ends its run."""
    corpus, seeds, finds = folder(CORPUS, reader), folder(CORPUS, reader + ".seeds"), folder(FINDS, reader)
    before = set(os.listdir(finds))
    subprocess.run([PROGRAM, f"--reader={reader}", f"--seeds={seeds}"], check=True)
    with open(os.path.join(folder(LOGS), reader + ".log"), "wb") as log:
        subprocess.run([PROGRAM, f"--reader={reader}", f"-max_total_time={seconds}", "-print_final_stats=1",
                        f"-artifact_prefix={finds}/", *LIMITS, corpus, seeds], stdout=log, stderr=log)
    with open(log.name, encoding="utf-8", errors="replace") as log:
        told = dict(STATISTIC.findall(log.read()))
    return reader, told.get("number_of_executed_units", "?"), told.get("average_exec_per_sec", "?"), \
        sorted(set(os.listdir(finds)) - before)


def main():
    seconds = int(sys.argv[1])
    readers = sys.argv[2:] or subprocess.run([PROGRAM, "--list"], check=True, capture_output=True, text=True).stdout.split()
    print(f"{'reader':16}{'runs':>12}{'runs/s':>9}  finds", flush=True)
    found = False
    with ThreadPoolExecutor(AT_ONCE) as pool:
        for reader, runs, rate, finds in pool.map(lambda reader: fuzz(reader, seconds), readers):
            found = found or bool(finds)
            print(f"{reader:16}{runs:>12}{rate:>9}  {', '.join(finds) or 'none'}", flush=True)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
