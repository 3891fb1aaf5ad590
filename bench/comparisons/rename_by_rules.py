import shutil
import subprocess

from comparisons.common import BIN, make_tree, measure, row
from comparisons.replace import has

# Debian's package `rename` calls Perl's program by this name; `rename` alone may be another one.
PERL = "file-rename"

COUNTS = (1000, 10000, 100000)
# What is read of an undo file holds some 22,000 names of this length.
RENAMED = 20000


def rename_by_rules(scratch):
    tree = scratch / "rename_by_rules"
    make_tree(tree, 1000, 100)
    # Two rows of one name stand in the way of a run, in different folders too.
    items = sorted(str(path.rename(path.with_name(f"{path.parent.name}_{path.name}"))) for path in tree.glob("*/*"))
    for count in (*COUNTS, RENAMED):
        (scratch / f"items-{count}").write_text("\n".join(items[:count]) + "\n")
    previews(scratch)
    runs(scratch, tree, items[:RENAMED])


def host(scratch, options, call):
    return [str(BIN / "qxhost"), "--config", str(scratch / "config"), *options, *call]


def perl(arguments, listing):
    return ["sh", "-c", f"exec {PERL} {arguments} <'{listing}'"]


def previews(scratch):
    """The whole command: reading the list, looking each file up, computing, checking the outcome, two columns."""
    pairs = ["--find", "some", "--replace", "any"]
    expressions = ["--regex", *pairs, "--find", "f(.)le", "--replace", "d$1t"]
    for label, rules, script in (
            ("[N]_[C] and a replacement", ["--name", "[N]_[C]", *pairs], "s/some/any/"),
            ("two expressions", expressions, "s/some/any/g; s/f(.)le/d$1t/g")):
        print(f"qxhost rename, a preview with {label}:")
        for count in COUNTS:
            listing = scratch / f"items-{count}"
            beside = None
            if has(PERL):
                beside, kib = measure(perl(f"-n '{script}'", listing))
                row(f"{PERL} -n, {count} names", beside, kib)
            seconds, kib = measure(host(scratch, ["--items", str(listing)], ["rename", *rules]))
            row(f"qxhost rename, {count} names", seconds, kib, beside=beside)
            seconds, kib = measure(host(scratch, ["--json", "--items", str(listing)], ["rename", *rules]))
            row("  for programs (--json)", seconds, kib, beside=beside)


def runs(scratch, tree, items):
    print(f"qxhost rename --run and --undo, {len(items)} real files:")
    shutil.rmtree(scratch / "config", ignore_errors=True)
    listing = scratch / f"items-{len(items)}"
    renamed = scratch / "items-renamed"
    renamed.write_text(listing.read_text().replace("some_file", "any_file"))
    beside = back = None
    if has(PERL):
        beside, kib = measure(perl("'s/some_file/any_file/'", listing), runs=1)
        row(f"{PERL}", beside, kib)
        back, kib = measure(perl("'s/any_file/some_file/'", renamed), runs=1)
        row(f"{PERL}, back", back, kib)
    call = host(scratch, ["--items", str(listing)], ["rename", "--find", "some_file", "--replace", "any_file", "--run"])
    row("qxhost rename --run, with an undo file", *measure(call, runs=1), beside=beside)
    row("qxhost rename --undo last", *measure(host(scratch, [], ["rename", "--undo", "last"]), runs=1), beside=back)
    left = subprocess.run(["find", str(tree), "-name", "*any_file*"], capture_output=True, check=True).stdout
    print(f"    {left.count(b'any_file')} files not taken back: beyond what is read of an undo file")
