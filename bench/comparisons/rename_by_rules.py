import pathlib
import random
import shutil
import string
import subprocess
import tempfile

from comparisons.common import BIN, make_tree, measure, row
from comparisons.replace import has

# Debian's package `rename` calls Perl's program by this name; `rename` alone may be another one.
PERL = "file-rename"

COUNTS = (1000, 10000, 100000, 1000000)
ENGINE_COUNTS = (1000, 100000, 1000000)
RUN = 100000
ROUNDS_OF_RUNS = 5

PAIRS = ["--find", "some", "--replace", "any"]
RULES = {
    "plain": ("[N]_[C] and a replacement", ["--name", "[N]_[C]", *PAIRS], "s/some/any/"),
    "expressions": ("two expressions", ["--regex", *PAIRS, "--find", "f(.)le", "--replace", "d$1t"],
                    "s/some/any/g; s/f(.)le/d$1t/g"),
}


def rename_by_rules(scratch):
    tree = scratch / "rename_by_rules"
    make_tree(tree, COUNTS[-1] // 100, 100)
    # Two rows with the same name prevent a run, even in different folders.
    items = sorted(str(path.rename(path.with_name(f"{path.parent.name}_{path.name}"))) for path in tree.glob("*/*"))
    for count in COUNTS:
        (scratch / f"items-{count}").write_text("\n".join(items[:count]) + "\n")
    perl_rows = previews(scratch)
    engine(perl_rows)
    runs(scratch, tree)


def host(scratch, options, call):
    return [str(BIN / "qxhost"), "--config", str(scratch / "config"), *options, *call]


def perl(arguments, listing):
    return ["sh", "-c", f"exec {PERL} {arguments} <'{listing}'"]


def previews(scratch):
    """The whole command: reading the list, looking each file up, computing, checking the outcome, two columns.

    Returns what a row costs Perl, in nanoseconds, by rules and count.
    """
    perl_rows = {}
    for kind, (label, rules, script) in RULES.items():
        print(f"qxhost rename, a preview with {label}:")
        for count in COUNTS:
            runs_of_one = 5 if count <= 100000 else 2
            listing = scratch / f"items-{count}"
            reference = None
            if has(PERL):
                reference, kib = measure(perl(f"-n '{script}'", listing), runs=runs_of_one)
                perl_rows[kind, count] = reference / count * 1e9
                row(f"{PERL} -n, {count} names", reference, kib)
            for ending, options in ("", []), (" --json", ["--json"]):
                seconds, kib = measure(host(scratch, [*options, "--items", str(listing)], ["rename", *rules]), runs=runs_of_one)
                row(f"qxhost{ending}, {count} names", seconds, kib, reference=reference)
    return perl_rows


def engine(perl_rows):
    """The engine alone, in the state of the window: with rows that were read and rules that were compiled."""
    print("The engine alone, processor time a row, and memory a row beyond the names, compared with all of Perl's:")
    for kind in RULES:
        for count in ENGINE_COUNTS:
            cost, size = (float(text) for text in preview_rows(count, kind))
            reference = perl_rows.get((kind, count))
            ratio = f"   {cost / reference:5.3f} of it" if reference else ""
            print(f"  {kind:<12} {count:>8} rows {cost:9.1f} ns {size:8.1f} bytes{ratio}")
    middle, worst, worked, most = preview_rows(ENGINE_COUNTS[-1], "stop")
    print(f"  a preview of {ENGINE_COUNTS[-1]} rows is asked to stop: idle after {middle} us (the middle of 200), {worst} us (the worst)")
    print(f"    of which the processor worked {worked} us, {most} us")


def preview_rows(count, kind):
    call = [str(BIN / "preview_rows"), str(count), kind]
    return subprocess.run(call, capture_output=True, check=True, text=True).stdout.split()


def runs(scratch, tree):
    """A run by a list, and its undo by the undo file."""
    items = [str(path) for path in sorted(tree.glob("*/*"))[:RUN]]
    there_and_back(scratch, f"qxhost rename --run, {RUN} real files in folders of 100:", items, "some_file", "any_file", False)
    folder = short_folder()
    if not folder:
        return
    try:
        # The readable part of an undo file has room for this many names if they and their folder are short.
        names = [f"a{number:06d}" for number in range(RUN)]
        for name in names:
            (folder / name).touch()
        there_and_back(scratch, f"qxhost rename --run and --undo, {RUN} real files in one folder of a short name:",
                       [str(folder / name) for name in names], "a", "", True)
    finally:
        shutil.rmtree(folder)


def short_folder():
    """A temporary folder with the shortest possible path; None if that is long."""
    for _ in range(100):
        folder = pathlib.Path(tempfile.gettempdir()) / "".join(random.choices(string.ascii_lowercase, k=2))
        if len(str(folder)) > 7:
            return None
        try:
            folder.mkdir()
            return folder
        except FileExistsError:
            pass
    return None


def there_and_back(scratch, title, items, find, replace, can_be_undone):
    print(title)
    shutil.rmtree(scratch / "config", ignore_errors=True)
    listing = scratch / "items-run"
    renamed = scratch / "items-renamed"
    parts = [item.rpartition("/") for item in items]
    listing.write_text("\n".join(items) + "\n")
    renamed.write_text("\n".join(folder + slash + name.replace(find, replace, 1) for folder, slash, name in parts) + "\n")
    there = perl(f"'s|{find}([^/]*)$|{replace}$1|'", listing)
    back = perl(f"'s|{replace}([^/]*)$|{find}$1|'", renamed)
    run = host(scratch, ["--items", str(listing)], ["rename", "--find", find, "--replace", replace, "--run"])
    undo = host(scratch, [], ["rename", "--undo", "last"])
    best = {}

    def take(name, command):
        best[name] = min(best.get(name, (1e9, 0)), measure(command, runs=1))

    # In turns, so that a change of the machine's speed affects all of them.
    for _ in range(ROUNDS_OF_RUNS):
        if has(PERL):
            take("there", there)
            take("back", back)
        take("run", run)
        if can_be_undone:
            take("undo", undo)
        else:
            for old, new in zip(items, renamed.read_text().splitlines()):
                pathlib.Path(new).rename(old)
    nothing = (None, 0)
    if has(PERL):
        row(f"{PERL}", *best["there"])
        row(f"{PERL}, back", *best["back"])
    row("qxhost rename --run, with an undo file", *best["run"], reference=best.get("there", nothing)[0])
    if can_be_undone:
        row("qxhost rename --undo last", *best["undo"], reference=best.get("back", nothing)[0])
