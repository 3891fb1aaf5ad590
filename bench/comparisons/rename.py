from comparisons.common import BIN, make_tree, measure, row
from comparisons.rename_by_rules import rename_by_rules

COUNTS = (1000, 10000, 100000)


def rename(scratch):
    tree = scratch / "rename"
    make_tree(tree, 1000, 100)
    items = sorted(str(path) for path in tree.glob("*/*"))
    print("Command 30002 with --dry-run, per item:")
    for count in COUNTS:
        per_item(scratch, items[:count], "30002", "--dry-run")
    items = sorted(rename_blank(path) for path in tree.glob("*/*"))
    print("Renames that are real, one after the other, per item: command 30005, and 30003 back:")
    for count in COUNTS:
        there_and_back(scratch, items[:count])
    print("The same with --in-order:")
    for count in COUNTS:
        there_and_back(scratch, items[:count], "--in-order")
    chain(scratch)
    rename_by_rules(scratch)


def rename_blank(path):
    """Gives a file a name that has blanks alone, so that 30003 undoes 30005."""
    return str(path.rename(path.with_name(path.name.replace("_", " "))))


def call(scratch, items, command, *options):
    listing = scratch / "items"
    listing.write_text("\n".join(items) + "\n")
    return measure([str(BIN / "qxhost"), "--config", str(scratch / "config"), *options, "--answer", "ok", "--items", str(listing), "command", command],
                   runs=5 if "--dry-run" in options else 1)


def show(label, count, seconds, kib):
    row(label, seconds, kib)
    print(f"    {seconds / count * 1e6:.2f} us an item")


def per_item(scratch, items, command, *options):
    show(f"{len(items)} items", len(items), *call(scratch, items, command, *options))


def there_and_back(scratch, items, *options):
    """The best of three, each way: blanks of the names become underscores, and underscores blanks."""
    parts = [path.rpartition("/") for path in items]
    other = [folder + slash + name.replace(" ", "_") for folder, slash, name in parts]
    best, peak = None, 0
    for _ in range(3):
        for names, command in (items, "30005"), (other, "30003"):
            seconds, kib = call(scratch, names, command, *options)
            best, peak = seconds if best is None else min(best, seconds), max(peak, kib)
    show(f"{len(items)} items", len(items), best, peak)


def chain(scratch):
    """Names of which each waits for the next: x to xx, xx to xxxx and so on, in many folders."""
    print("Chains of six renames, per item: each waits for the next:")
    top = scratch / "chains"
    items = []
    for folder in range(1000):
        path = top / str(folder)
        path.mkdir(parents=True)
        for power in range(6):
            (path / ("x" * 2**power)).touch()
            items.append(str(path / ("x" * 2**power)))
    show(f"{len(items)} items", len(items), *call(scratch, items, "30010", "--form", "find=x", "--form", "replace=xx",
                           "--answer", "ok"))
