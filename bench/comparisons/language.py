import os

from comparisons.common import TOP, alone, measure, text_lines


def language(scratch):
    """In the order of the user's language, natively and under Wine (which measures Wine, not Windows)."""
    lines = text_lines()[:200_000]
    text = scratch / "text"
    text.write_bytes(b"\n".join(lines) + b"\n")
    wide = scratch / "wide"
    wide.write_bytes(b"\xff\xfe" + text.read_bytes().decode("latin-1").encode("utf-16-le"))
    target = scratch / "sorted"
    print(f"Sorting {len(lines)} lines in the order of the language:")
    for path, kind in ((text, "bytes"), (wide, "16-bit units")):
        for words in (["language"], ["language", "natural"]):
            alone(path, target, f"{kind}, {' '.join(words)}", ["line", *words], len(lines))
    wine = TOP / "build/windows/bin/sort_file.exe"
    if not wine.exists() or not os.environ.get("WINEPREFIX"):
        print("  under Wine: not run; needs ./test windows and WINEPREFIX")
        return
    for path, kind in ((text, "bytes"), (wide, "16-bit units")):
        seconds, _ = measure([str(TOP / "scripts/wine"), str(wine), f"Z:{path}", f"Z:{target}", "line", "language"], runs=1)
        print(f"  Wine, {kind}: {len(lines) / seconds / 1e6:.3f} million lines a second, its start included")
