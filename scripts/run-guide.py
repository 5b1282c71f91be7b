"""Runs the commands of a guide one after the other, and compares what they print with what the guide says.

    run-guide.py GUIDE [TEXT=REPLACEMENT...]

An indented code block is either a session, in which commands follow "$ ", or a list of commands. A command that the guide
shows without output has to succeed; one with output has to print just that. Times, ids of saves, and who was it on which
machine may differ. A replacement is made in commands before they run, and taken back in what they print.

Comments in the guide, each before a block, say what no reader needs:

    <!-- guide: skip REASON -->    the next block is not run; the reason is printed
    <!-- guide: run COMMAND -->    something that has to be so, or has happened meanwhile
"""
import dataclasses
import re
import subprocess
import sys

END = "end of the command"
DIRECTIVE = re.compile(r"<!-- guide: (skip|run) (.*) -->$")


@dataclasses.dataclass
class Command:
    line: int
    text: str
    expected: list = dataclasses.field(default_factory=list)
    isShown: bool = True
    skipped: str = ""


def blocks(lines):
    """Yields (line number, lines) of every indented code block, and of every directive."""
    block, isFenced = [], False
    for number, line in enumerate(lines + [""], 1):
        if line.strip().startswith("```"):
            isFenced = not isFenced
        elif not isFenced and line.startswith("    ") and (block or not lines[number - 2].strip()):
            block.append(line[4:])
        elif block and (line.strip() or not (number < len(lines) and lines[number].startswith("    "))):
            yield number - len(block), block
            block = []
        elif block:
            block.append("")
        if not isFenced and DIRECTIVE.match(line):
            yield number, [line]


def commands(lines):
    """Yields the commands in the order in which they run."""
    skipped = ""
    for number, block in blocks(lines):
        directive = DIRECTIVE.match(block[0])
        if directive and directive[1] == "run":
            yield Command(number, directive[2], isShown=False)
        elif directive:
            skipped = directive[2]
        else:
            yield from commandsOf(number, block, skipped)
            skipped = ""


def commandsOf(number, block, skipped):
    isSession = any(line.startswith("$ ") for line in block)
    command = None
    for offset, line in enumerate(block):
        if not isSession or line.startswith("$ "):
            if command:
                yield command
            command = Command(number + offset, line[2:] if isSession else line, skipped=skipped) if line else None
        elif line:
            command.expected.append(line)
    if command:
        yield command


def sameWhoever(text):
    """Without what differs from run to run."""
    text = re.sub(r"\d\d\.\d\d\.\d{4} \d\d:\d\d:\d\d", "WHEN", text)
    text = re.sub(r"[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}", "SAVE", text)
    text = re.sub(r"(?<![/\w])[\w-]+@[\w-]+\b", "WHO", text)
    return re.sub(r" {2,}", "  ", text).rstrip()


class Shell:
    def __init__(self):
        self.process = subprocess.Popen(["bash"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.STDOUT, text=True)

    def run(self, command):
        """The lines that it prints, and its exit status."""
        self.process.stdin.write(f"{command}\nprintf '\\n%s %d\\n' '{END}' $?\n")
        self.process.stdin.flush()
        printed = []
        for line in self.process.stdout:
            if line.startswith(END):
                return [text for text in printed if text], int(line.rsplit(" ", 1)[1])
            printed.append(line.rstrip())
        sys.exit(f"The shell has ended: {command}")


def replaced(text, replacements):
    """All at once: what has come in is not looked at again."""
    return re.sub("|".join(map(re.escape, replacements)) or "$^", lambda found: replacements[found[0]], text)


def complaint(command, printed, status):
    if command.text.startswith("# "):
        return "is for the administrator of a machine, and not skipped"
    if command.expected and [sameWhoever(line) for line in printed] != [sameWhoever(line) for line in command.expected]:
        return "prints something else"
    if not command.expected and status != 0:
        return f"fails with status {status}"
    return ""


def main(guide, replacements):
    shell = Shell()
    shownAs = {real: shown for shown, real in replacements.items()}
    ran, failed = 0, 0
    for command in commands(open(guide, encoding="utf-8").read().splitlines()):
        if command.skipped:
            print(f"{guide}:{command.line}: not run, {command.skipped}: {command.text}")
            continue
        printed, status = shell.run(replaced(command.text, replacements))
        printed = [replaced(line, shownAs) for line in printed]
        ran += command.isShown
        reason = complaint(command, printed, status)
        if reason:
            failed += 1
            print("\n".join([f"{guide}:{command.line}: {reason}: {command.text}", *(f"    {line}" for line in printed)]))
    print(f"{guide}: {ran} commands run, {failed} of them not as the guide says")
    return failed == 0


if __name__ == "__main__":
    sys.exit(not main(sys.argv[1], dict(argument.split("=", 1) for argument in sys.argv[2:])))
