import subprocess

from comparisons.common import BIN, measure, repeated, row, text_lines
from comparisons.replace import compare, has


def own(verb, source, target):
    return [str(BIN / "convert_file"), verb, str(source), str(target)]


def convert(scratch):
    text, target, peer = scratch / "text", scratch / "converted", scratch / "peer"
    content = repeated(text_lines(), 200e6)
    text.write_bytes(content)
    print(f"Converting {len(content) / 1e6:.0f} MB of text:")

    def peers(program, command):
        return [(program, command)] if has(program.split()[0]) else []

    compare("30102, line ends to CR LF", own("crlf", text, target),
            peers("unix2dos -n", ["unix2dos", "-q", "-n", str(text), str(peer)]))
    dos = scratch / "dos"
    dos.write_bytes(content.replace(b"\n", b"\r\n"))
    compare("30101, line ends to LF", own("lf", dos, target),
            peers("dos2unix -n", ["dos2unix", "-q", "-n", str(dos), str(peer)]))
    dos.unlink()
    compare("30110, tabs to blanks", own("tabs", text, target),
            [("expand", ["sh", "-c", f"LC_ALL=C exec expand -t 4 '{text}' >'{peer}'"])])

    print("Base64 of the same file:")
    encoded = scratch / "encoded"
    compare("30210, encode", own("encode", text, target),
            [("base64", ["sh", "-c", f"exec base64 '{text}' >'{peer}'"])])
    subprocess.run(own("encode", text, encoded), check=True)
    plain = scratch / "plain"
    subprocess.run(["sh", "-c", f"base64 '{text}' >'{plain}'"], check=True)
    compare("30211, decode", own("decode", encoded, target),
            [("base64 -d", ["sh", "-c", f"exec base64 -d '{plain}' >'{peer}'"])])
