#!/usr/bin/env python3
"""Judges what the tests of a build have run: every branch of the store, conflict and conversion code, and at least 95 %
of the lines of everything else, in each of its folders.

    scripts/coverage.py BUILD_DIR    a build of the preset "asan", whose last run of tests was one of them all

Writes BUILD_DIR/coverage/index.html, which shows every line with how often it ran.
"""

import json
import os
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

# Every branch of these: one that no test takes may lose a setting, or bend it.
EVERY_BRANCH = {
    "Store": [
        "host/changestamp.cpp",
        "host/databasefile.cpp",
        "host/schema.cpp",
        "host/settingshistory.cpp",
        "host/settingsstore.cpp",
        "host/settingswriter.cpp",
        "host/sqlconnection.cpp",
        "host/sqlerrorwords.cpp",
        "host/sqltransaction.cpp",
    ],
    "Conflicts": [
        "host/draftedit.cpp",
        "host/saveresult.cpp",
        "host/settingchange.cpp",
        "host/settingedit.cpp",
        "host/settingsdifference.cpp",
        "host/settingssession.cpp",
    ],
    "Conversions": [
        "host/jsonmembers.cpp",
        "host/jsonsetting.cpp",
        "host/parameterdomain.cpp",
        "host/settingaddress.cpp",
        "host/settingvalue.cpp",
        "host/storedtext.cpp",
        "src/builders/jsonparambuilder.cpp",
        "src/dbsettingsgroup.cpp",
        "src/dbsettingsvalue.cpp",
        "src/widgets/dbbuttonwidget.cpp",
        "src/widgets/dbcheckboxwidget.cpp",
        "src/widgets/dbcomboboxwidget.cpp",
        "src/widgets/dblineeditwidget.cpp",
        "src/widgets/dbobjselectorwidget.cpp",
        "src/widgets/dbpasswordwidget.cpp",
        "src/widgets/dbspinboxwidget.cpp",
    ],
}
FOLDERS = ["include", "src", "compat", "platform", "host", "apps", "designer"]
LEAST_LINES = 95  # per cent

# Programs that the build itself runs, before the tests look at what they have written.
NOT_COUNTED = ("apps/ctl/documents/", "apps/manager/desktop/")

# What stands between these two in a source is not counted; the reason stands behind the first.
UNCOVERED_FROM, UNCOVERED_TO = "// Uncovered from here: ", "// Uncovered to here"


class Record:
    """What has been recorded of one source: how often each line ran, and how often each branch was taken. A condition has
    two branches, (where it stands, False) and (where it stands, True), whose place begins with its line."""

    def __init__(self):
        self.lines = defaultdict(int)
        self.branches = defaultdict(int)

    def without(self, left_out):
        rest = Record()
        rest.lines.update((line, count) for line, count in self.lines.items() if line not in left_out)
        rest.branches.update((branch, count) for branch, count in self.branches.items() if line_of(branch) not in left_out)
        return rest


def line_of(branch):
    return branch[0][0]


def main(build):
    root = Path(__file__).resolve().parent.parent
    if os.geteuid() != 0:
        print("Not judged: two of the failures that are to be seen can only be caused by root. Run the tests in a container.")
        return 0
    programs = instrumented_programs(build)
    profile = merge_profiles(build)
    records = read_records(root, programs, profile)
    counted = {name: record.without(left_out(root / name, record)) for name, record in records.items()}
    problems = judge(counted)
    write_pages(root, build, programs, profile)
    if problems:
        sys.exit("\n".join([*problems, f"{build}/coverage/index.html shows where."]))
    return 0


def instrumented_programs(build):
    found = [*build.glob("bin/*"), *build.glob("lib/*.so"), *build.glob("designer/plugins/designer/*.so")]
    arguments = [str(found[0])]
    for program in found[1:]:
        arguments += ["-object", str(program)]
    return arguments


def merge_profiles(build):
    profiles = build / "profiles"
    if not profiles.is_dir():
        sys.exit(f"{profiles} is missing: run the tests of {build} first.")
    merged = build / "tests.profdata"
    # Programs that a test has killed leave halves of profiles.
    run("llvm-profdata", "merge", "--sparse", "--failure-mode=all", "-o", str(merged), str(profiles))
    return f"-instr-profile={merged}"


def read_records(root, programs, profile):
    records = defaultdict(Record)
    name = None
    for line in run("llvm-cov", "export", "-format=lcov", profile, *programs).splitlines():
        kind, _, rest = line.partition(":")
        if kind == "SF":
            name = os.path.relpath(rest, root)
        elif kind == "DA":
            number, count = rest.split(",")[:2]
            records[name].lines[int(number)] += int(count)
    # What is made from a template is listed once for each type, here with the column that tells which belong together.
    for file in json.loads(run("llvm-cov", "export", "-format=text", profile, *programs))["data"][0]["files"]:
        branches = records[os.path.relpath(file["filename"], root)].branches
        for *place, true_count, false_count, _, _, _ in file["branches"]:
            branches[tuple(place), True] += true_count
            branches[tuple(place), False] += false_count
    return {name: record for name, record in records.items() if is_counted(name)}


def is_counted(name):
    return name.split("/")[0] in FOLDERS and not name.startswith(NOT_COUNTED)


def left_out(source, record):
    """The lines between the two marks. Ends where all of them run: then there is nothing to leave out."""
    left, begin = set(), None
    for number, text in enumerate(source.read_text(encoding="utf-8").splitlines(), 1):
        if UNCOVERED_FROM in text:
            begin = number
        elif UNCOVERED_TO in text:
            between = set(range(begin, number))
            if all(count > 0 for count in counts_of(record, between)):
                sys.exit(f"{source}:{begin}: everything runs that is said to be uncovered")
            left |= between
            begin = None
    if begin:
        sys.exit(f"{source}:{begin}: there is no end of what is uncovered")
    return left


def counts_of(record, lines):
    yield from (count for line, count in record.lines.items() if line in lines)
    yield from (count for branch, count in record.branches.items() if line_of(branch) in lines)


def judge(records):
    problems = []
    strict = set()
    for title, names in EVERY_BRANCH.items():
        strict.update(names)
        missing = [
            f"{name}:{line_of(branch)}: no test makes the condition {str(branch[1]).lower()}"
            for name in names
            for branch, count in records[name].branches.items()
            if count == 0
        ]
        number = sum(len(records[name].branches) for name in names)
        print(f"{title}: {number - len(missing)} of {number} branches")
        problems += missing
    for folder in FOLDERS:
        counts = [
            count
            for name, record in records.items()
            if name.startswith(folder + "/") and name not in strict
            for count in record.lines.values()
        ]
        ran = sum(count > 0 for count in counts)
        print(f"The rest of {folder}: {ran} of {len(counts)} lines, {100 * ran / len(counts):.1f} %")
        if 100 * ran < LEAST_LINES * len(counts):
            problems.append(f"{folder}: less than {LEAST_LINES} % of the lines")
    return problems


def write_pages(root, build, programs, profile):
    sources = [str(root / folder) for folder in FOLDERS]
    pages = ("-format=html", "-show-branches=count", "-project-title=Coverage", f"-output-dir={build}/coverage")
    run("llvm-cov", "show", *pages, profile, *programs, *sources)


def run(*command):
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8", check=False)
    if result.returncode != 0:
        sys.exit(f"{' '.join(command[:2])} failed:\n{result.stderr}")
    return result.stdout


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: scripts/coverage.py BUILD_DIR")
    sys.exit(main(Path(sys.argv[1])))
