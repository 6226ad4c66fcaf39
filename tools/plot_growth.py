#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Draws how the cost of a cycle grows, from the benchmarks' output: plot_growth.py JSON SVG
import json
import math
import sys

PANELS = [("rules", "rules (3 inputs)"), ("inputs", "inputs (1,000 rules)"),
          ("outputs", "outputs (1,000 rules)")]
SERIES = [("dense", "dense engine", "#8a8f98"), ("all", "all inputs change", "#d9822b"),
          ("one", "one input changes", "#2f6db3")]
WIDTH, HEIGHT = 960, 384
LEFT, TOP, PANEL_WIDTH, PANEL_HEIGHT, GAP = 66, 62, 270, 272, 30
BOTTOM = TOP + PANEL_HEIGHT
SLOWEST, FASTEST = 400_000, 20  # nanoseconds at the top and the bottom

STYLE = """
    text { fill: #223; }
    .small { font-size: 11px; fill: #555; }
    .panel { fill: none; stroke: #446; }
    .grid { stroke: #e3e6ea; }
    .line { fill: none; stroke-width: 2; stroke-linejoin: round; }
"""


def read_medians(path):
    """{(what grows, series): [(size, nanoseconds)]}, by size."""
    curves = {}
    with open(path, encoding="utf-8") as file:
        runs = json.load(file)["benchmarks"]
    for run in runs:
        parts = run["run_name"].split("/")
        if parts[0] == "growth" and run.get("aggregate_name") == "median":
            curves.setdefault((parts[1], parts[3]), []).append((int(parts[2]), run["real_time"]))
    return {key: sorted(points) for key, points in curves.items()}


def place_y(nanoseconds):
    share = math.log(nanoseconds / FASTEST) / math.log(SLOWEST / FASTEST)
    return BOTTOM - PANEL_HEIGHT * share


def text(x, y, content, anchor="middle", extra=""):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" {extra}>{content}</text>'


def draw_times(left, has_labels):
    """Lines at the powers of ten, named beside the first panel."""
    for nanoseconds, name in [(100, "100 ns"), (1000, "1 µs"), (10_000, "10 µs"),
                              (100_000, "100 µs")]:
        y = place_y(nanoseconds)
        yield f'<path class="grid" d="M{left} {y:.1f} h{PANEL_WIDTH}"/>'
        if has_labels:
            yield text(left - 8, y + 4, name, "end", 'class="small"')


def draw_panel(left, title, what, curves):
    sizes = sorted({size for (grows, _), points in curves.items() if grows == what
                    for size, _ in points})
    margin = 16

    def place_x(size):
        share = math.log(size / sizes[0]) / math.log(sizes[-1] / sizes[0])
        return left + margin + (PANEL_WIDTH - 2 * margin) * share

    yield from draw_times(left, left == LEFT)
    latest = -math.inf
    for size in sizes:
        x = place_x(size)
        yield f'<path class="grid" d="M{x:.1f} {TOP} v{PANEL_HEIGHT}"/>'
        number = f"{size:,}"
        half_width = 3.5 * len(number)
        if x - half_width > latest + 4:
            yield text(x, BOTTOM + 17, number, extra='class="small"')
            latest = x + half_width
    yield (f'<rect class="panel" x="{left}" y="{TOP}" width="{PANEL_WIDTH}" '
           f'height="{PANEL_HEIGHT}"/>')
    yield text(left + PANEL_WIDTH / 2, BOTTOM + 38, title)
    for series, _, color in SERIES:
        points = [(place_x(size), place_y(time)) for size, time in curves[what, series]]
        path = " L".join(f"{x:.1f} {y:.1f}" for x, y in points)
        yield f'<path class="line" stroke="{color}" d="M{path}"/>'
        for x, y in points:
            yield f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{color}"/>'


def draw_legend():
    x = LEFT
    yield text(x, 26, "Time of one cycle", "start", 'font-weight="bold"')
    x += 180
    for _, name, color in SERIES:
        yield f'<path class="line" stroke="{color}" d="M{x} 22 h28"/>'
        yield f'<circle cx="{x + 14}" cy="22" r="3" fill="{color}"/>'
        yield text(x + 36, 26, name, "start")
        x += 190
    yield text(LEFT, 46, "both axes logarithmic; up to 8 rules fire on the left, about one in "
               "eight in the middle and on the right", "start", 'class="small"')


def draw(curves):
    yield (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" '
           f'font-family="sans-serif" font-size="13">')
    yield f"<style>{STYLE}</style>"
    yield f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#fff"/>'
    yield from draw_legend()
    for i, (what, title) in enumerate(PANELS):
        yield from draw_panel(LEFT + i * (PANEL_WIDTH + GAP), title, what, curves)
    yield "</svg>"


def main():
    source, target = sys.argv[1:]
    with open(target, "w", encoding="utf-8") as file:
        file.writelines(line + "\n" for line in draw(read_medians(source)))


main()
