#!/usr/bin/env python3
"""Creates one inversion in odd surroundings; each time the folder must be the same to the byte.

usage: odd_worlds.py PROGRAM SURVEY WORK

SURVEY holds tiny.inp and its data; WORK is emptied and used. Exits 1 when a run fails or its files differ.
"""
import os
import shutil
import subprocess
import sys

NAMES = ["with blank", "50% %TEMP%", "it's", 'say "so"', "Größe Übung", "磁気", "a&b (c) ^ ; , = ~ [x] #!", "-dash", "tab\there"]
COMMA_LOCALES = [("de_DE", "UTF-8"), ("fr_FR", "ISO-8859-1"), ("tr_TR", "UTF-8")]


def lines(content):
    return content.replace(b"\r\n", b"\n").replace(b"\r", b"\n").split(b"\n")[:-1]


def mixed(content):
    return b"".join(line + (b"\n", b"\r\n", b"\r")[i % 3] for i, line in enumerate(lines(content)))


LINE_ENDS = {
    "LF": lambda content: b"\n".join(lines(content)) + b"\n",
    "CR": lambda content: b"\r".join(lines(content)) + b"\r",
    "mixed line ends": mixed,
    "a UTF-8 mark": lambda content: b"\xef\xbb\xbf" + content,
}


class Worlds:
    def __init__(self, program, survey, work):
        self.program, self.survey, self.work, self.faults = program, survey, work, 0
        self.expected = {}

    def create(self, place, output, environment):
        command = [self.program, "create", "tiny.inp", "--output", output]
        return subprocess.run(command, cwd=place, env={**os.environ, **environment}, capture_output=True, check=False)

    def files(self, output):
        """The content of each file by its name; the definition is named after the folder."""
        found = {}
        for name in os.listdir(output):
            with open(os.path.join(output, name), "rb") as file:
                found["DEFINITION" if name == os.path.basename(output) + ".inp" else name] = file.read()
        return found

    def tries(self, what, place, output="out", environment={}, change=None):
        place, output = os.path.join(self.work, place), os.path.join(self.work, place, output)
        shutil.copytree(self.survey, place)
        for name in os.listdir(place) if change else ():
            if name.endswith((".inp", ".csv", ".xyz")):
                with open(os.path.join(place, name), "rb") as file:
                    content = change(file.read())
                with open(os.path.join(place, name), "wb") as file:
                    file.write(content)
        run = self.create(place, output, environment)
        made = self.files(output) if run.returncode == 0 else {}
        self.expected = self.expected or made
        good = run.returncode == 0 and made == self.expected
        print(what, "good" if good else f"FAILED: status {run.returncode} {run.stderr.decode(errors='replace')[-300:]}")
        self.faults += not good

    def locales(self):
        """Locales with a decimal comma, made here so that the machine need not have them."""
        for name, code in COMMA_LOCALES:
            folder = os.path.join(self.work, "locales")
            os.makedirs(folder, exist_ok=True)
            made = subprocess.run(["localedef", "-i", name, "-f", code, os.path.join(folder, name)], capture_output=True, check=False)
            if not os.path.exists(os.path.join(folder, name, "LC_NUMERIC")):
                print(f"locale {name} skipped: {made.stderr.decode(errors='replace').strip()}")
                continue
            self.tries("locale " + name, "in " + name, environment={"LOCPATH": folder, "LC_ALL": name, "LANG": name})


def main(program, survey, work):
    program, survey, work = map(os.path.abspath, (program, survey, work))
    shutil.rmtree(work, ignore_errors=True)
    os.makedirs(work)
    worlds = Worlds(program, survey, work)
    worlds.tries("as it should be", "plain")
    worlds.locales()
    worlds.tries("no home to write to", "no home", environment={"HOME": "/proc/none", "XDG_CONFIG_HOME": "/proc/none"})
    for name in NAMES:
        worlds.tries("a folder called " + name, name, "out " + name)
    for length in (250, 1000):
        place = "/".join(["long" * 12] * 20)[: length - len(work) - 5].rstrip("/")
        worlds.tries(f"a path of {len(work) + len(place) + 5} letters", place)
    for what, change in LINE_ENDS.items():
        worlds.tries(what, what, change=change)
    sys.exit(1 if worlds.faults else 0)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
