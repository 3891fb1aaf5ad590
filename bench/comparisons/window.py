import os
import subprocess

from comparisons.common import TOP

ROWS = (1000, 100000, 1000000)


def window(_):
    """MultiRename's window under Wine, on a display of its own: the response times."""
    program = TOP / "build/windows/bin/window_speed.exe"
    script = f'. scripts/common.sh; prepare_wine; scripts/wine "{program}" "$0"'
    for rows in ROWS:
        print(f"MultiRename's window under Wine, {rows} rows (the best of five runs, and the middle one):")
        lines = subprocess.run(["bash", "-c", script, str(rows)], cwd=TOP, stdin=subprocess.DEVNULL, check=True,
                               capture_output=True, text=True, env={**os.environ, "DISPLAY": ""}).stdout.splitlines()
        for name, best, middle, unit in (line.split(";") for line in lines):
            print(f"  {name:<48} {float(best):9.1f} {float(middle):9.1f} {unit}")
