import random

from comparisons.common import BIN, alone, measure, repeated, row, text_lines


def compare_with_gnu_sort(path, target, label, peer, words):
    seconds, kib = measure(["env", "LC_ALL=C", "sort", *peer, str(path), "-o", str(target)])
    row("sort " + " ".join(peer), seconds, kib)
    row(label, *measure([str(BIN / "sort_file"), str(path), str(target), *words]), reference=seconds)


def sort(scratch):
    target = scratch / "sorted"
    text = scratch / "text"
    content = repeated(text_lines(), 200e6)
    text.write_bytes(content)
    lines = content.count(b"\n")
    print(f"Sorting {len(content) / 1e6:.0f} MB of text, {lines} lines:")
    compare_with_gnu_sort(text, target, "by line", ["-s"], ["line"])
    compare_with_gnu_sort(text, target, "by line, ignoring case", ["-sf"], ["line", "ignore-case"])
    compare_with_gnu_sort(text, target, "by item 2, separator ':'", ["-s", "-t:", "-k2,2"], ["item", "sep=:", "n=2"])
    wide = scratch / "wide"
    wide.write_bytes(b"\xff\xfe" + content.decode("latin-1").encode("utf-16-le"))
    del content
    alone(wide, target, "the same text in 16-bit units, by line", ["line"], lines)
    alone(wide, target, "  ignoring case", ["line", "ignore-case"], lines)
    for path in (text, wide):
        path.unlink()

    source = random.Random(2)
    numbers = scratch / "numbers"
    numbers.write_text("".join(f"{source.randint(-10**6, 10**6)}\n" for _ in range(2_000_000)))
    print("Sorting 2 million short numbers:")
    compare_with_gnu_sort(numbers, target, "by number", ["-sn"], ["substring", "number"])
    dates = scratch / "dates"
    dates.write_text("".join(
        f"{source.randint(1970, 2037)}-{source.randint(1, 12):02d}-{source.randint(1, 28):02d} line\n"
        for _ in range(2_000_000)))
    print("Sorting 2 million dates:")
    alone(dates, target, "by date %Y-%m-%d", ["substring", "date", "format=%Y-%m-%d"], 2_000_000)
