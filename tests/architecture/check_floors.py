#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that no source includes a floor above its own, and that headers begin as they must.

Usage: check_floors.py [ROOT]      checks a tree, by default the one this file lies in
       check_floors.py --self-test shows that each rule finds a fault planted against it
"""
import re
import sys
import tempfile
from pathlib import Path

CORE = ["base", "objectstore", "livedata", "store", "services", "presentation", "export"]
ALLOWED = {folder: set(CORE[: floor + 1]) for floor, folder in enumerate(CORE)}
ALLOWED["ui"] = {*CORE, "ui"}
ALLOWED["platform"] = {*CORE, "platform"} - {"presentation", "export"}
ALLOWED["ctl"] = {*CORE, "ctl"}
ALLOWED["app"] = {*CORE, "ui", "platform", "app"}
STANDARD = [*CORE, "ctl"]
UNBOUND = ["tests", "benchmarks", "previews"]

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.MULTILINE)
QT = re.compile(r"Q[A-Z]\w*|Qt\w*/.*|q\w+\.h")
SQLITE = re.compile(r"sqlite3(ext)?\.h|SQLiteCpp/.*")
BUS = re.compile(r"systemd/.*")
BUS_FILE = "ctl/focus_bus.cpp"
SPDX = "// SPDX-License-Identifier: MIT\n"


def include_fault(folder, path, quote, target):
    first = target.split("/")[0]
    if first in UNBOUND or (first in ALLOWED and first not in ALLOWED[folder]):
        return f"{folder}/ must not include {first}/"
    if folder == "platform" and first == "services" and not target.startswith("services/ports/"):
        return f"platform/ knows of services/ the ports alone, and not <{target}>"
    # A path from elsewhere than the root would slip past the rule above.
    if quote == '"' and first not in ALLOWED and not target.endswith(".moc"):
        return f'"{target}" is not written from the root of the tree'
    if folder in STANDARD and QT.fullmatch(target):
        return f"{folder}/ is standard C++ and must not include Qt's <{target}>"
    if SQLITE.fullmatch(target) and not (folder == "objectstore" and path.suffix == ".cpp"):
        return f"only objectstore/*.cpp may include <{target}>"
    if BUS.fullmatch(target) and path.parts[-2:] != tuple(BUS_FILE.split("/")):
        return f"only {BUS_FILE} may include <{target}>"
    return None


def faults(root):
    sources = [path for folder in [*ALLOWED, *UNBOUND] for path in sorted((root / folder).rglob("*"))
               if path.suffix in (".h", ".cpp")]
    if not sources:
        yield f"{root}: there are no sources here"
    for path in sources:
        text, name = path.read_text(encoding="utf-8"), path.relative_to(root)
        if not text.startswith(SPDX):
            yield f"{name}:1: does not begin with its licence: {SPDX.strip()}"
        if path.suffix == ".h" and "\n#pragma once\n" not in text:
            yield f"{name}:1: has no #pragma once"
        for match in INCLUDE.finditer(text) if name.parts[0] in ALLOWED else []:
            if fault := include_fault(name.parts[0], path, *match.groups()):
                yield f"{name}:{text.count(chr(10), 0, match.start()) + 1}: {fault}"


def self_test():
    once = "#pragma once\n"
    rows = [  # file, its text after the licence, how many faults
        ("store/a.h", once + '#include "livedata/b.h"\n#include "store/c.h"\n#include <vector>\n', 0),
        ("objectstore/a.cpp", "#include <sqlite3.h>\n#include <SQLiteCpp/Database.h>\n", 0),
        ("app/a.cpp", '#include <QtQml/qqml.h>\n#include "ui/b.h"\n#include "a.moc"\n', 0),
        ("tests/ui/a.cpp", '#include "support/b.h"\n#include <sqlite3.h>\n', 0),
        ("livedata/a.cpp", '#include "base/b.h"\n  # include "store/b.h"\n#include <store/c.h>\n', 2),
        ("ui/a.cpp", '#include "platform/b.h"\n#include "app/b.h"\n', 2),
        ("platform/a/b.cpp", '#include "presentation/b.h"\n#include "ui/b.h"\n#include "services/b.h"\n', 3),
        ("platform/a/b.cpp", '#include "platform/c/d.h"\n#include "services/ports/b.h"\n', 0),
        ("app/a.cpp", "#include <tests/support/b.h>\n", 1),
        ("store/a.cpp", '#include "../ui/b.h"\n#include "b.h"\n', 2),
        ("export/a.cpp", "#include <QtCore/QDate>\n#include <qobject.h>\n#include <sqlite3.h>\n", 3),
        ("objectstore/a.h", once + "#include <sqlite3.h>\n#include <SQLiteCpp/Database.h>\n", 2),
        ("tests/support/a.h", "", 1),
        ("ctl/focus_bus.cpp", '#include "export/b.h"\n#include <systemd/sd-bus.h>\n', 0),
        ("ctl/a.cpp", '#include "platform/b.h"\n#include <QString>\n#include <systemd/sd-bus.h>\n', 3),
        ("export/a.cpp", '#include "ctl/b.h"\n', 1),
    ]
    cases = [(name, SPDX + text, count) for name, text, count in rows]
    for name, text, count in [*cases, ("base/a.h", once, 2), ("README.md", "", 1)]:
        with tempfile.TemporaryDirectory() as tree:
            path = Path(tree, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
            if len(found := list(faults(Path(tree)))) != count:
                yield f"{name}: {count} faults planted, found {found} in:\n{text}"


if __name__ == "__main__":
    argument = sys.argv[1] if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    found = list(self_test() if argument == "--self-test" else faults(Path(argument)))
    print(*found, sep="\n", end="\n" if found else "")
    sys.exit(1 if found else 0)
