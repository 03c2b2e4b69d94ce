# SPDX-License-Identifier: MIT
"""Draws all previews, of which no view may complain, and compares those that are stored beside this
file: compare_previews.py PROGRAM OUTPUT"""

import subprocess
import sys
from pathlib import Path

LEAST_CHANGE = "6%"  # of a colour
MOST_CHANGED = 30  # pixels: less than a letter of small text
EMOJI = {"home-empty.png": 60}  # more of them: Debian 13's font draws the pointing hand anew

program, output = sys.argv[1], Path(sys.argv[2])
subprocess.run([program, output], check=True)
stored = sorted(Path(__file__).parent.glob("*.png"))
failures = [] if stored else ["There are no pictures."]
for accepted in stored:
    difference = output / f"difference-{accepted.name}"
    compared = subprocess.run(
        ["compare", "-metric", "AE", "-fuzz", LEAST_CHANGE, accepted, output / accepted.name, difference],
        stderr=subprocess.PIPE, text=True, check=False)
    # 1 says that they differ, more that they cannot be compared.
    if compared.returncode > 1 or float(compared.stderr) > MOST_CHANGED + EMOJI.get(accepted.name, 0):
        failures.append(f"{compared.stderr} pixels differ: see {difference}")
sys.exit("\n".join(failures) or 0)
