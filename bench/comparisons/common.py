"""Measures whole commands, and creates the files for them."""
import pathlib
import random
import subprocess
import sys
import tempfile
import time

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
BIN = TOP / "build/native/bin"


def measure(command, runs=5):
    """Best wall time in seconds and the peak memory in KiB of one of the runs."""
    best, peak = None, 0
    with tempfile.NamedTemporaryFile("r") as report:
        # A small process starts the command: a child of this one would be charged with Python's memory.
        timed = ["/usr/bin/time", "-o", report.name, "-f", "%e %M", *command]
        for _ in range(runs):
            start = time.perf_counter()
            status = subprocess.call(timed, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
            elapsed = time.perf_counter() - start
            if status != 0:
                sys.exit(f"{' '.join(command[:6])} failed with status {status}")
            report.seek(0)
            best = elapsed if best is None else min(best, elapsed)
            peak = max(peak, int(report.read().split()[-1]))
    return best, peak


def row(label, seconds, kib, reference=None):
    ratio = f"   {seconds / reference:5.2f} of it" if reference else ""
    print(f"  {label:<44} {seconds * 1000:9.1f} ms {kib / 1024:8.1f} MiB{ratio}")


def alone(path, target, label, words, lines):
    seconds, kib = measure([str(BIN / "sort_file"), str(path), str(target), *words], runs=3)
    row(label, seconds, kib)
    print(f"    {lines / seconds / 1e6:.2f} million lines a second")


def make_tree(top, folders, files):
    for folder in range(folders):
        path = top / f"folder {folder:04d}"
        path.mkdir(parents=True)
        for file in range(files):
            (path / f"some_file name {file:03d}.TXT").touch()


def text_lines():
    """Text of real shape: the package index of the machine, or lines of its lengths, repeats and prefixes."""
    index = subprocess.run(["apt-cache", "dumpavail"], capture_output=True, check=False).stdout
    lines = [line for line in index.split(b"\n") if len(line) < 16000]
    if len(lines) > 500_000:
        return lines
    source = random.Random(1)
    words = [bytes(source.choices(b"abcdefghijklmnopqrstuvwxyz", k=source.randint(2, 12))) for _ in range(20_000)]
    fields = [b"Package: ", b"Version: ", b"Depends: lib", b"Filename: pool/main/", b"Description-md5: ", b" "]
    fixed = [b"Architecture: amd64", b"Priority: optional", b"Section: libs", b""]
    for _ in range(1_000_000):
        if source.random() < 0.25:
            lines.append(source.choice(fixed))
        else:
            lines.append(source.choice(fields) + b" ".join(source.choices(words, k=int(source.expovariate(0.2)) + 1)))
    return lines


def repeated(lines, size):
    """The lines as text, as often as it takes to reach the size."""
    text = b"\n".join(lines) + b"\n"
    return text * max(1, round(size / len(text)))
