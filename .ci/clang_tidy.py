#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs clang-tidy over every source of the project: clang_tidy.py BUILD_DIRECTORY

A source is passed over where the same text was found clean before, with all that it includes, the
configuration and the version of clang-tidy: what an earlier run found clean is kept, by a hash of all
that, in the cache directory of whoever runs it."""

import hashlib
import json
import os
import shlex
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = Path(sys.argv[1]).resolve()
CACHE = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache", "hearthmark-clang-tidy")
KEPT_FOR = 30 * 86_400  # seconds
END = time.monotonic() + float(os.environ.get("CLANG_TIDY_SECONDS", "inf"))
GROUND = subprocess.check_output(["clang-tidy", "--version"]) + (ROOT / ".clang-tidy").read_bytes()


def preprocessed(entry):
    """With comments, by which findings are suppressed, and as if it were compiled anywhere."""
    command = shlex.split(entry["command"])
    command[command.index("-o"):command.index("-o") + 2] = ["-E", "-C"]
    text = subprocess.run(command, cwd=entry["directory"], stdout=subprocess.PIPE, check=True).stdout
    return text.replace(str(BUILD).encode(), b"").replace(str(ROOT).encode(), b"")


def is_clean(entry):
    """None where there was no time."""
    mark = CACHE / hashlib.sha256(GROUND + preprocessed(entry)).hexdigest()
    if not mark.exists() and time.monotonic() > END:
        return None
    if not mark.exists():
        found = subprocess.run(["clang-tidy", "--quiet", "-p", BUILD, entry["file"]], text=True, check=False,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        # The count of suppressed findings in system headers is no news.
        errors = [line for line in found.stderr.splitlines() if not line.endswith(" generated.")]
        print("\n".join([found.stdout.rstrip(), *errors]).strip(), end="\n" * bool(found.stdout), flush=True)
        if found.returncode or found.stdout.strip():
            return False
    mark.touch()
    return True


def main():
    CACHE.mkdir(parents=True, exist_ok=True)
    entries = {entry["file"]: entry for entry in json.loads((BUILD / "compile_commands.json").read_text())
               if not Path(entry["file"]).is_relative_to(BUILD)}
    log = subprocess.run(["git", "log", "--reverse", "--format=", "--name-only"], cwd=ROOT, text=True, check=False,
                         stdout=subprocess.PIPE).stdout.splitlines()
    changes = {ROOT / name: number for number, name in enumerate(log)}
    ordered = sorted(entries.values(), reverse=True,
                     key=lambda entry: changes.get(Path(entry["file"]), len(log)))
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        found = [*pool.map(is_clean, ordered)]
    for mark in CACHE.iterdir():
        if mark.stat().st_mtime < time.time() - KEPT_FOR:
            mark.unlink()
    print(f"{found.count(True)} of {len(found)} sources are clean, and there was no time for {found.count(None)}.")
    sys.exit(False in found)


main()
