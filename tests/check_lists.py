#!/usr/bin/env python3
"""tests/check_lists.py: checks that lists made by hand, in pages and in the benchmarks' report, are
complete.

The page of slots says which slots are served; another test compares it with the tables. The forms
are those of common/forms.h.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "bench" / "report"))
sys.dont_write_bytecode = True
import classes
import goals
import results

faults = []


def expect(condition, fault):
    if not condition:
        faults.append(fault)


def served_slots(page):
    """Yields (suite, slot, routine, forms) of each served slot on the page of slots."""
    suite = ""
    for line in page.splitlines():
        if heading := re.match(r"## (\w+)$", line):
            suite = heading[1]
        elif found := re.match(r"\| (\d+) \| `(\w+)` \| [^|]* \| served \| ([^|]*) \|", line):
            yield suite, int(found[1]), found[2], found[3].strip()


def check_slots():
    page = (ROOT / "docs/SLOTS.md").read_text()
    cases = {case.split()[0] for _, listed in classes.CLASSES for case in listed}
    cases |= {"/".join(case.split("/")[:2]) for case in goals.FILL_ARRAYS}
    limits = re.findall(r"{kBlend, {([^}]*)}", (ROOT / "bench/limits.cpp").read_text())
    limited = {int(slot) for listed in limits for slot in listed.split(",")}
    found = list(served_slots(page))
    expect(found, "docs/SLOTS.md: no slot is served")
    for suite, slot, routine, forms in found:
        if suite == "core":
            continue
        expect(forms, f"{suite} {slot} {routine} is served, and no form has a kernel for it")
        expect(f"{suite}/{slot}" in cases,
               f"{suite} {slot} {routine} is in no class of bench/report/classes.py")
        expect(suite != "blnd" or slot in limited, f"{suite} {slot} {routine} has no limit in bench/limits.cpp")
    return re.search(r"\| all \| \| (\d+) \| (\d+) \|", page)


def check_readme(counts):
    readme = (ROOT / "README.md").read_text()
    served, passed = int(counts[1]), int(counts[2])
    expect(f"writes {served + passed} slots" in readme, f"README.md: {served + passed} slots are written")
    expect(f"{served} of them are served" in readme, f"README.md: {served} slots are served")


def check_forms():
    text = (ROOT / "common/forms.h").read_text()
    order = re.search(r"using Forms = FormList<([^>]*)>", text)[1].split(", ")
    forms = {}
    for form in order:
        about = re.search(rf"struct {form} {{\s*static constexpr char kName\[\] = \"(\w+)\";\s*"
                          r"static constexpr int kBytes = (\d+);", text)
        forms[form] = (about[1], int(about[2]))
    names = [name for name, _ in forms.values()]
    expect(results.FORMS == names, f"bench/report/results.py lists {results.FORMS}, not {names}")
    for name in results.WIDER:
        for file in ("plot.py", "goals.py"):
            expect(f'"{name}"' in (ROOT / "bench/report" / file).read_text(), f"bench/report/{file} lacks {name}")
    page = (ROOT / "docs/ARCHITECTURE.md").read_text()
    shown = re.findall(r"^\| `(\w+)` \| (one sample|\d+) \|", page, re.M)
    expect(shown == [(form, "one sample" if size == 1 else str(size)) for form, (_, size) in forms.items()],
           f"docs/ARCHITECTURE.md: the table of forms has {shown}")


check_readme(check_slots())
check_forms()
for fault in faults:
    print(fault)
print("the lists are complete" if not faults else f"{len(faults)} faults")
sys.exit(1 if faults else 0)
