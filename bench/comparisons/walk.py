from comparisons.common import BIN, make_tree, measure, row


def walk(scratch):
    print("Walking a tree with the size of every file, DirectoryWalker compared with find:")
    for folders, files in ((100, 100), (1000, 100), (1000, 1000)):
        tree = scratch / f"walk-{folders}-{files}"
        make_tree(tree, folders, files)
        print(f" {folders * files} files in {folders} folders")
        seconds, kib = measure(["find", str(tree), "-type", "f", "-printf", "%s\n"])
        row("find -type f -printf %s", seconds, kib)
        row("DirectoryWalker", *measure([str(BIN / "walk_tree"), str(tree)]), reference=seconds)
