"""Prints the plot of a run: plot.py RESULTS.json SLOTS.md. One row a kernel, a bar a form: how
many times as long as the limit it takes, in planes of 256 KiB."""

import math
import sys

from classes import CLASSES
from goals import CACHED
from results import Results

LEFT, WIDTH, BAR, GAP, HEAD = 300, 640, 5, 7, 56
LEAST, MOST = 0.5, 512
COLORS = {"no vectoriser": "#d9d9d9", "g++ -O3": "#a6a6a6", "scalar": "#c6dbef", "peer": "#fdae6b",
          "16-byte": "#2171b5", "32-byte": "#74c476"}


def place(ratio):
    share = math.log2(max(ratio, LEAST) / LEAST) / math.log2(MOST / LEAST)
    return LEFT + WIDTH * min(share, 1)


def bars(results, case):
    """Forms and how many times as long as the limit they take."""
    own = results.installed(case)
    forms = {"no vectoriser": "unvectorised", "g++ -O3": "vectorised", "scalar": "scalar",
             "peer": results.peer(case, CACHED), "16-byte": own if own != "scalar" else None, "32-byte": "AVX2"}
    for name, form in forms.items():
        if results.has(case, form, CACHED):
            yield name, results.least(case, form, CACHED) / results.least(case, "limit", CACHED)


def main():
    results = Results(*sys.argv[1:])
    shapes, y = [], HEAD
    for title, cases in CLASSES:
        cases = [case for case in cases if results.has(case, "limit", CACHED)]
        if not cases:
            continue
        shapes.append(f'<text x="8" y="{y + 12}" font-weight="bold">{title}</text>')
        y += 20
        for case in cases:
            rows = list(bars(results, case))
            middle = y + len(rows) * BAR / 2 + 4
            shapes.append(f'<text x="{LEFT - 8}" y="{middle:.1f}" text-anchor="end">{results.name(case)}</text>')
            for name, ratio in rows:
                shapes.append(f'<rect x="{LEFT}" y="{y}" width="{place(ratio) - LEFT:.1f}" height="{BAR - 1}" '
                              f'fill="{COLORS[name]}"><title>{name}: {ratio:.2f}</title></rect>')
                y += BAR
            y += GAP
    bottom = y
    for power in range(-1, 10):
        x = place(2.0**power)
        stroke = "#cb181d" if power == 0 else "#e8e8e8"
        shapes.insert(0, f'<line x1="{x:.1f}" y1="{HEAD - 6}" x2="{x:.1f}" y2="{bottom}" stroke="{stroke}"/>')
        shapes.append(f'<text x="{x:.1f}" y="{HEAD - 10}" text-anchor="middle">{2.0**power:g}</text>')
    x = LEFT
    for name, color in COLORS.items():
        shapes.append(f'<rect x="{x}" y="12" width="12" height="12" fill="{color}"/>'
                      f'<text x="{x + 16}" y="22">{name}</text>')
        x += 105
    shapes.append('<text x="8" y="22">times the limit of the memory</text>')
    width = LEFT + WIDTH + 20
    print(f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {bottom + 10}" '
          'font-family="sans-serif" font-size="11">')
    print(f'<rect width="{width}" height="{bottom + 10}" fill="white"/>')
    print("\n".join(shapes))
    print("</svg>")


main()
