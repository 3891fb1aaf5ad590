import subprocess

from comparisons.common import BIN, measure, repeated, row, text_lines

# Occurs in about every tenth line of a package index.
WORD = "amd64"


def own(source, target, find, replace, *words):
    return [str(BIN / "replace_in_file"), str(source), str(target), find, replace, *words]


def compare(label, command, peers):
    """Rows of the peers (label, command), then ours compared with each of them."""
    results = [(name, *measure(peer)) for name, peer in peers]
    for name, seconds, kib in results:
        row(name, seconds, kib)
    seconds, kib = measure(command)
    row(label, seconds, kib)
    for name, peer_seconds, _ in results:
        print(f"    {seconds / peer_seconds:5.2f} of {name}")
    return seconds


def sed(text, target, script):
    """sed with output to a file, as our program writes one."""
    return ["sh", "-c", f"LC_ALL=C exec sed '{script}' '{text}' >'{target}'"]


def has(program):
    return subprocess.run(["which", program], capture_output=True, check=False).returncode == 0


def replace(scratch):
    text, target = scratch / "text", scratch / "replaced"
    content = repeated(text_lines(), 200e6)
    text.write_bytes(content)
    lines = content.count(b"\n")
    hits = sum(WORD.encode() in line for line in content.split(b"\n"))
    print(f"Replacing in {len(content) / 1e6:.0f} MB of text, {lines} lines, {hits} of them with the word {WORD}:")
    peers = [("sed s/.../.../g", sed(text, target, f"s/{WORD}/x86-64/g"))]
    if has("rg"):
        peers.append(("rg --passthru -r",
                      ["sh", "-c", f"exec rg --no-config -N --passthru -r x86-64 {WORD} '{text}' >'{target}'"]))
    if has("sd"):
        # With -p it writes its output, here to a file, instead of replacing in place.
        peers.append(("sd -s (its output to a file)",
                      ["sh", "-c", f"exec sd -s -p {WORD} x86-64 '{text}' >'{target}'"]))
    ours = compare("One", own(text, target, WORD, "x86-64", "one"), peers)

    seconds, kib = measure(own(text, target, "zzqqzz", "x", "one"))
    row("One, no match at all", seconds, kib)
    row("  compared with reading the file: wc -l", *measure(["wc", "-l", str(text)]))
    compare("One, ignoring case", own(text, target, WORD, "x86-64", "one", "ignore-case"),
            [("sed s/.../.../Ig", sed(text, target, f"s/{WORD}/x86-64/Ig"))])
    compare("One, wildcard P*e", own(text, target, "P*e", "X", "one", "wildcard"),
            [("sed s/P.*e/X/g", sed(text, target, "s/P.*e/X/g"))])

    # Words of the text, none of which contains another one, so no two matches overlap.
    finds = [f"pkg{number:03d}q" for number in range(98)] + [WORD, "Priority"]
    replaces = [f"new{number:03d}" for number in range(100)]
    script = scratch / "script"
    script.write_text("".join(f"s/{find}/{new}/g\n" for find, new in zip(finds, replaces)))
    compare("Many, 100 pairs", own(text, target, "\n".join(finds), "\n".join(replaces), "many"),
            [("sed -f with 100 commands", ["sh", "-c", f"LC_ALL=C exec sed -f '{script}' '{text}' >'{target}'"])])

    wide = scratch / "wide"
    wide.write_bytes(b"\xff\xfe" + content.decode("latin-1").encode("utf-16-le"))
    seconds, kib = measure(own(wide, target, WORD, "x86-64", "one"), runs=3)
    row("One, the same text in 16-bit units", seconds, kib, reference=ours)
