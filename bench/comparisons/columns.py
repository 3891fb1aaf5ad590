import os
import shlex

from comparisons.common import BIN, make_tree, measure, row


def columns(scratch):
    """Gets the same data from standard tools: the owner from ls, the attributes from getfattr, the rights from getfacl."""
    print("qxhost columns compared with ls -l, getfattr and getfacl, one after the other:")
    tree = scratch / "columns"
    make_tree(tree, 1000, 100)
    files = sorted(str(path) for path in tree.glob("*/*"))
    for path in files[::10]:
        os.setxattr(path, "user.note", b"0123456789")
    for count in (1000, 10000, 100000):
        listing = scratch / f"columns-{count}"
        listing.write_text("\n".join(files[:count]) + "\n")
        names = scratch / f"columns-{count}-names"
        names.write_text("\0".join(files[:count]) + "\0")
        each = " && ".join(f"xargs -0 {tool} < {shlex.quote(str(names))}"
                           for tool in ("ls -l", "getfattr --absolute-names", "getfacl --absolute-names"))
        print(f" {count} files")
        seconds, kib = measure(["sh", "-c", each])
        row("ls -l, getfattr, getfacl", seconds, kib)
        row("qxhost columns", *measure([
            str(BIN / "qxhost"), "--config", str(scratch / "config"), "--items", str(listing), "columns"]),
            reference=seconds)
