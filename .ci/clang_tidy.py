#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs clang-tidy over every source of the project: clang_tidy.py BUILD_DIRECTORY

A source is passed over where the same text was found clean before, with all that it includes, the
configuration and the version of clang-tidy: what an earlier run found clean is kept, by a hash of all
that, in the cache directory of whoever runs it. With CLANG_TIDY_SECONDS, what is left after that time
is left for the next run, but for the work of the last hours, which comes first."""

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
KEPT_FOR, WORK = 30 * 86_400, 3 * 3_600  # seconds
END = time.monotonic() + float(os.environ.get("CLANG_TIDY_SECONDS", "inf"))
GROUND = subprocess.check_output(["clang-tidy", "--version"]) + (ROOT / ".clang-tidy").read_bytes()


def preprocessed(entry):
    """With comments, by which findings are suppressed, and as if it were compiled anywhere."""
    command = shlex.split(entry["command"])
    command[command.index("-o"):command.index("-o") + 2] = ["-E", "-C"]
    text = subprocess.run(command, cwd=entry["directory"], stdout=subprocess.PIPE, check=True).stdout
    return text.replace(str(BUILD).encode(), b"").replace(str(ROOT).encode(), b"")


def last_changed():
    """The files that the work of the last hours changed; for a header its source, too."""
    def git(*options):
        return subprocess.run(["git", "log", *options], cwd=ROOT, text=True, check=False,
                              stdout=subprocess.PIPE).stdout.split()
    until = git("-1", "--format=%ct")
    files = {ROOT / name for name in git("--format=", "--name-only", f"--since={int(until[0]) - WORK}")} if until else set()
    return files | {file.with_suffix(".cpp") for file in files}


def is_clean(entry, last):
    """None where there was no time."""
    text = preprocessed(entry)
    mark = CACHE / hashlib.sha256(GROUND + text).hexdigest()
    if not mark.exists():
        # What has no source of its own is looked at wherever it is included.
        lone = (file for file in last if file.suffix == ".h" and not file.with_suffix(".cpp").exists())
        if time.monotonic() > END and Path(entry["file"]) not in last and not any(
                f'"/{file.relative_to(ROOT)}"'.encode() in text for file in lone):
            return None
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
    last = last_changed()
    ordered = sorted(entries.values(), key=lambda entry: Path(entry["file"]) not in last)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        found = [*pool.map(is_clean, ordered, [last] * len(ordered))]
    for mark in CACHE.iterdir():
        if mark.stat().st_mtime < time.time() - KEPT_FOR:
            mark.unlink()
    print(f"{found.count(True)} of {len(found)} sources are clean, and there was no time for {found.count(None)}.")
    sys.exit(False in found)


main()
