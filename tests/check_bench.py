#!/usr/bin/env python3
"""tests/check_bench.py COMMAND...: checks that what `vantrix-host bench` prints agrees with itself,
for each slot that `vantrix-host slots` calls served, except the core suite's, which computes
nothing.
"""
import re
import subprocess
import sys

SIZES = ["4 KiB", "64 KiB", "1 MiB", "64 x 5", "64 x 15", "64 x 33"]
CELLS = 21
LINE = re.compile(r"  (.{7})" + r" +([\d.]+)" * 4 + r" +([\d.]+)x" * 2 + " (█*)(▒*)(░*)")
SUM = re.compile(r"(\w+) (?:planes|short rows) +(\d+)" + r" +([\d.]+)x" * 6)


def run(*arguments):
    ended = subprocess.run(sys.argv[1:] + list(arguments), capture_output=True)
    output = ended.stdout.decode("utf-8").replace("\r\n", "\n")
    assert ended.returncode == 0, (arguments, output[-2000:], ended.stderr)
    assert not re.search(r"[^\n -~█▒░]", output), "characters that a console may not show"
    return output


def served():
    suite, names = "", []
    for line in run("slots").splitlines():
        if heading := re.match(r"(\w{4}) version", line):
            suite = heading[1]
        elif suite != "core" and (slot := re.match(r" +(\d+) .* served ", line)):
            names.append(f"{suite}:{slot[1]}")
    assert names
    return names


def is_near(a, b):
    """Whether figures of three digits agree."""
    return abs(a - b) <= 0.02 * max(a, b)


def check_line(line):
    match = LINE.fullmatch(line)
    assert match, line
    ticks, plugin, ordinary, own, than_ordinary, than_own = map(float, match.groups()[1:7])
    assert min(ticks, plugin, ordinary, own) > 0, line
    if plugin > 0.01:  # smaller figures show too few digits
        assert is_near(than_ordinary, ordinary / plugin) and is_near(than_own, own / plugin), line
    dark, grey, light = map(len, match.groups()[7:])
    assert dark >= 1 and dark + grey + light == CELLS, line
    assert abs(dark - CELLS * plugin / max(plugin, ordinary, own)) <= 1, line
    return match[1].strip()


def check(output, names):
    """Checks the slots, the lines of each and the sums."""
    assert all(len(line) <= 80 for line in output.splitlines())
    table, sums = output.split("\nquicker than  ")
    sizes, found = {}, []
    for line in table.split("own ordinary    own\n")[1].splitlines():
        if line.startswith("  "):
            sizes[found[-1]].append(check_line(line))
        else:
            found.append(line.split()[0])
            sizes[found[-1]] = []
    assert sorted(found) == sorted(names), (found, names)
    for slot, of in sizes.items():
        assert of in (SIZES, ["1 x 128"]), (slot, of)
    rows = [(row[1], int(row[2]), map(float, row.groups()[2:])) for row in SUM.finditer(sums)]
    assert {row[0] for row in rows} == {name.split(":")[0] for name in names} | {"all"}
    lines = sum(map(len, sizes.values()))
    assert lines == sum(count for suite, count, _ in rows if suite != "all")
    assert lines == sum(count for suite, count, _ in rows if suite == "all")
    for _, _, (mean, least, most, own_mean, own_least, own_most) in rows:
        assert least <= mean <= most and own_least <= own_mean <= own_most


quick = ["bench", "--time", "0.0001"]
check(run(*quick), served())
some = ["path:24", "filt:188"]
check(run(*quick, "--slot", *some, "--slot", some[0]), some)
