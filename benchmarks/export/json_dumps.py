#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Prints the median of the seconds that json.dumps takes: json_dumps.py FILE INDENTATION"""

import json
import statistics
import sys
import timeit
from pathlib import Path

document = json.loads(Path(sys.argv[1]).read_bytes())
indent = int(sys.argv[2]) or None
times = timeit.repeat(lambda: json.dumps(document, indent=indent), number=1, repeat=7)
print(statistics.median(times))
