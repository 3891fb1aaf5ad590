"""Counts the tests of a log: prints "PASSED FAILED", or with --failures the lines that matter.

Knows GoogleTest (brief or not), Python's unittest, and the project's own checks, which print lines that begin
with "ok" or "not ok".
"""
import re
import sys


def count(text):
    passed = failed = 0
    for match in re.finditer(r"^\[  PASSED  \] (\d+) tests?\.", text, re.M):
        passed += int(match.group(1))
    for match in re.finditer(r"^\[  FAILED  \] (\d+) tests?, listed below", text, re.M):
        failed += int(match.group(1))
    for match in re.finditer(r"^Ran (\d+) tests? in", text, re.M):
        bad = sum(map(int, re.findall(r"(?:failures|errors|skipped)=(\d+)", text[match.end():])))
        passed += int(match.group(1)) - bad
        failed += bad
    passed += len(re.findall(r"^ok\b(?! \()", text, re.M))
    failed += len(re.findall(r"^not ok\b", text, re.M))
    return passed, failed


def failures(text):
    """The lines of the GoogleTest tests that failed or did not end, else the end of the log."""
    lines, began = [], None
    for line in text.splitlines():
        if line.startswith("[ RUN      ]"):
            began = len(lines)
        elif line.startswith("[       OK ]") and began is not None:
            del lines[began:]
            began = None
            continue
        elif line.startswith("[  FAILED  ]"):
            began = None
        elif line.startswith("[-----") or (not line and began is None):
            continue
        lines.append(line)
    return lines


def main():
    show = sys.argv[1] == "--failures"
    with open(sys.argv[-1], encoding="utf-8", errors="replace") as log:
        text = log.read()
    if show:
        print("\n".join(failures(text)[-120:]))
    else:
        print(*count(text))


main()
