"""Prints the plot of a run: plot.py RESULTS.json SLOTS.md. It has a row for each kernel and a bar
for each form: how many times as long as the 16-byte limit it takes, in planes of 256 KiB."""

import math
import sys

from classes import CLASSES
from results import CACHED, Results

COLUMNS, NAMES, BARS, BETWEEN, HEAD = 2, 206, 316, 16, 46
BAR, GAP, TITLE = 3, 4, 16
LEAST, MOST = 0.25, 256
COLORS = {"g++ -O3": "#bdbdbd", "scalar": "#c6dbef", "peer": "#fdae6b", "16-byte": "#6baed6", "AVX2": "#2171b5",
          "AVX512": "#08306b"}


def place(ratio):
    share = math.log2(max(ratio, LEAST) / LEAST) / math.log2(MOST / LEAST)
    return NAMES + BARS * min(share, 1)


def bars(results, case):
    """Yields forms, and how many times as long as the limit they take."""
    for name in COLORS:
        form = results.form(case, "vectorised" if name == "g++ -O3" else name, CACHED)
        if results.has(case, form, CACHED):
            yield name, results.least(case, form, CACHED) / results.least(case, "limit", CACHED)


def height(rows):
    return max(len(rows), 3) * BAR + GAP


def classes(results):
    """Yields titles with their kernels, each with its bars."""
    for title, cases in CLASSES:
        kernels = [(results.name(case), list(bars(results, case))) for case in cases
                   if results.has(case, "limit", CACHED) and not case.endswith(("disc", "tiles"))]
        if kernels:
            yield title, kernels


def draw_class(title, kernels, y):
    yield f'<text x="0" y="{y + 11}" font-weight="bold">{title}</text>'
    y += TITLE
    for name, rows in kernels:
        middle = y + (height(rows) - GAP) / 2 + 4
        yield f'<text x="{NAMES - 6}" y="{middle:.1f}" text-anchor="end">{name}</text>'
        for form, ratio in rows:
            yield (f'<rect x="{NAMES}" y="{y}" width="{place(ratio) - NAMES:.1f}" height="{BAR}" '
                   f'fill="{COLORS[form]}"><title>{form}: {ratio:.2f}</title></rect>')
            y += BAR
        y += height(rows) - len(rows) * BAR


def draw_axis(bottom):
    for power in range(round(math.log2(LEAST)), round(math.log2(MOST)) + 1):
        x = place(2.0**power)
        stroke = "#cb181d" if power == 0 else "#e8e8e8"
        yield f'<line x1="{x:.1f}" y1="{HEAD - 4}" x2="{x:.1f}" y2="{bottom}" stroke="{stroke}"/>'
        yield f'<text x="{x:.1f}" y="{HEAD - 8}" text-anchor="middle">{2.0**power:g}</text>'


def draw_legend():
    yield ('<text x="8" y="16">Time, as a multiple of the limit of the memory in 16-byte registers (1, red). '
           'Shorter is better.</text>')
    x = 560
    for name, color in COLORS.items():
        yield f'<rect x="{x}" y="7" width="10" height="10" fill="{color}"/><text x="{x + 13}" y="16">{name}</text>'
        x += 68


def main():
    results = Results(*sys.argv[1:])
    blocks = [(title, kernels, TITLE + sum(height(rows) for _, rows in kernels))
              for title, kernels in classes(results)]
    # Makes columns as equal as whole classes allow.
    half = sum(size for _, _, size in blocks) / COLUMNS
    columns, filled = [[] for _ in range(COLUMNS)], 0
    for block in blocks:
        columns[min(int((filled + block[2] / 2) // half), COLUMNS - 1)].append(block)
        filled += block[2]
    bottom = HEAD + max((sum(size for _, _, size in column) for column in columns), default=0)
    width = COLUMNS * (NAMES + BARS) + (COLUMNS - 1) * BETWEEN + 24
    print(f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {bottom + 4}" '
          'font-family="sans-serif" font-size="10">')
    print(f'<rect width="{width}" height="{bottom + 4}" fill="white"/>')
    print("\n".join(draw_legend()))
    for index, column in enumerate(columns):
        print(f'<g transform="translate({8 + index * (NAMES + BARS + BETWEEN)} 0)">')
        print("\n".join(draw_axis(bottom)))
        y = HEAD
        for title, kernels, size in column:
            print("\n".join(draw_class(title, kernels, y)))
            y += size
        print("</g>")
    print("</svg>")


main()
