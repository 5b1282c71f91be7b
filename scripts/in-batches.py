#!/usr/bin/env python3
"""Runs a checker over sources, several of them read as one, so that the headers they share are read and searched once.

    scripts/in-batches.py BUILD_DIR COMMAND...    with the sources, one a line, on the standard input

BUILD_DIR tells how they are compiled; files of one kind share a batch. Where the names of two sources collide, as those
of two anonymous namespaces may, the batch is split, in the end into single files. Ends with 1 if the checker found
something anywhere.
"""
import concurrent.futures
import itertools
import json
import os
import pathlib
import re
import subprocess
import sys

BATCH_SIZE = 12
# The checker reads the headers itself: precompiled ones hold more than a file includes.
PRECOMPILED = re.compile(r"(-Xclang )?-include(-pch)? (-Xclang )?\S*cmake_pch\S* ?")
# Warnings are those of the builds: one file's names may shadow another's here.
WARNINGS = re.compile(r"-W[a-z]\S* ?")
OWN_FOLDER = re.compile(r"-I\S*_autogen/include ?")
# What the compiler itself refuses, in the words of clang-tidy and of clazy.
REFUSED = re.compile(r"^(.+?):\d+:\d+: (?:fatal )?error: .*(?:\[clang-diagnostic-error.*\]|[^\]])$", re.MULTILINE)


def batches(build, sources):
    """The sources that are compiled alike, each list with the folder and the command for it."""
    kinds = {}
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        if entry["file"] in sources:
            flags = WARNINGS.sub("", PRECOMPILED.sub("", entry["command"].split(" -o ")[0]))
            kind = kinds.setdefault((entry["directory"], OWN_FOLDER.sub("", flags)), ([], set()))
            kind[0].append(entry["file"])
            kind[1].update(OWN_FOLDER.findall(flags))
    for (directory, flags), (files, folders) in kinds.items():
        command = " ".join([flags, *sorted(folders)])
        count = -(-len(files) // BATCH_SIZE)
        for number in range(count):
            yield files[number::count], directory, command


def apart(files, refused):
    """Two lists of files: those in which a name collided with an earlier one are in the second."""
    parts = [[file for file in files if file not in refused], [file for file in files if file in refused]]
    return parts if all(parts) else [files[::2], files[1::2]]


class Checker:
    def __init__(self, folder, command):
        self.folder = folder
        self.command = command
        self.numbers = itertools.count()

    def check(self, batch):
        """What the checker says of the batch, or of its parts, and whether it found anything."""
        files, directory, flags = batch
        result = self.run(*batch)
        refused = set(REFUSED.findall(result.stdout))
        if result.returncode and refused and len(files) > 1:
            parts = [(part, directory, flags) for part in apart(files, refused)]
            said, found = zip(*map(self.check, parts))
            return "".join(said), any(found)
        return result.stdout, result.returncode != 0

    def run(self, files, directory, flags):
        folder = self.folder / str(next(self.numbers))
        folder.mkdir(parents=True, exist_ok=True)
        source = folder / "batch.cpp"
        includes = "".join(f'#include "{file}" // NOLINT(bugprone-suspicious-include)\n' for file in files)
        source.write_text(includes, encoding="utf-8")
        entry = {"file": str(source), "directory": directory, "command": f"{flags} -o batch.o -c {source}"}
        (folder / "compile_commands.json").write_text(json.dumps([entry]), encoding="utf-8")
        return subprocess.run(
            [*self.command, "-p", str(folder), str(source)],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    sources = {os.path.abspath(line.strip()) for line in sys.stdin}
    checker = Checker(build / "batches" / os.path.basename(sys.argv[2]), sys.argv[2:])
    work = list(batches(build, sources))
    missing = sources.difference(*(files for files, _, _ in work))
    if missing:
        sys.exit("Not compiled by this build: " + ", ".join(sorted(missing)))
    failed = False
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for said, found in pool.map(checker.check, work):
            failed |= found
            if found:
                print(said, end="", flush=True)
    sys.exit(failed)


main()
