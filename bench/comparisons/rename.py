from comparisons.common import BIN, make_tree, measure, row


def rename(scratch):
    print("Command 30002 with --dry-run, per item:")
    tree = scratch / "rename"
    make_tree(tree, 1000, 100)
    items = sorted(str(path) for path in tree.glob("*/*"))
    for count in (1000, 10000, 100000):
        listing = scratch / f"items-{count}"
        listing.write_text("\n".join(items[:count]) + "\n")
        seconds, kib = measure([
            str(BIN / "qxhost"), "--config", str(scratch / "config"), "--dry-run", "--answer", "ok",
            "--items", str(listing), "command", "30002"])
        row(f"{count} items", seconds, kib)
        print(f"    {seconds / count * 1e6:.2f} us an item")
