#!/usr/bin/env python3
"""Usage: ratios.py <results.json>... [--svg <directory>]

Reads what Google Benchmark wrote (with repetitions, aggregates or not), takes the median CPU time of each row and prints
the table of ratios against the goals. Rows are named <purpose>/<candidate>. With --svg it also draws one bar chart a
purpose. An absolute figure means nothing on another machine: only ratios within one run are shown.
"""
import json
import statistics
import sys

# (purpose, what it is, candidate to compare with, larger is better, goal)
GOALS = [
    ("W1", "ToJson into a reused string, W1, share of the table reference's speed", "table", True, 1.0),
    ("W2", "ToJson into a reused string, W2, share of the table reference's speed", "table", True, 1.0),
    ("R1", "FromJson R1, share of the table reference's speed", "table", True, 1.0),
    ("R2", "FromJson R2, share of the table reference's speed", "table", True, 1.0),
    ("R1", "FromJson R1, share of the speed of simdjson on-demand by hand", "simdjson", True, 1.0),
    ("R2", "FromJson R2, share of the speed of simdjson on-demand by hand", "simdjson", True, 1.0),
    ("Text20", "AsString of an object of 20 attributes, times the hand-written appends", "hand", False, 1.3),
    ("LookUp", "FindAttribByName, random of 20, times an unordered_map<string_view> look-up", "hand", False, 0.7),
    ("HeldInt", "read an int by a held reference, times a call through a function pointer", "hand", False, 1.3),
    ("Walk", "walk of a vector<int> of 100,000 with As_int, times a loop through a function pointer", "hand", False, 1.3),
    ("Numeric", "CNumeric from the double 1234.5678, times std::to_chars with six decimals", "hand", False, 2.0),
]


def medians(paths):
    """Median CPU time of every row, in nanoseconds."""
    scale = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
    times = {}
    for path in paths:
        with open(path, encoding="utf-8") as file:
            for row in json.load(file)["benchmarks"]:
                if row.get("error_occurred"):
                    sys.exit(f"{row['name']}: {row.get('error_message', 'failed')}")
                if row["run_type"] == "iteration":
                    times.setdefault(row["run_name"], []).append(row["cpu_time"] * scale[row["time_unit"]])
    return {name: statistics.median(values) for name, values in times.items()}


def print_goals(times):
    print(f"{'what':<92} {'measured':>8} {'goal':>8}")
    for purpose, what, other, larger, goal in GOALS:
        library, reference = times.get(f"{purpose}/library"), times.get(f"{purpose}/{other}")
        if library is None or reference is None:
            print(f"{what:<92} {'-':>8}")
            continue
        ratio = reference / library if larger else library / reference
        met = ratio >= goal if larger else ratio <= goal
        print(f"{what:<92} {ratio:>8.2f} {'>=' if larger else '<='} {goal:.1f} {'' if met else '  missed'}")


def purposes(times):
    found = {}
    for name, value in times.items():
        purpose, _, candidate = name.partition("/")
        if f"{purpose}/library" in times and candidate:
            found.setdefault(purpose, {})[candidate] = value
    return found


def print_shares(times):
    print("\nTime of each candidate, times the library's (below 1 is faster than the library):")
    for purpose, candidates in purposes(times).items():
        shares = ", ".join(f"{name} {value / candidates['library']:.2f}"
                           for name, value in sorted(candidates.items(), key=lambda item: item[1]))
        print(f"  {purpose:<8} {shares}")


def draw(directory, purpose, candidates):
    """One bar a candidate, its length the time in terms of the library's."""
    rows = sorted(candidates.items(), key=lambda item: item[1])
    longest = rows[-1][1]
    height = 28 * len(rows) + 44
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="640" height="{height}" font-family="sans-serif" font-size="13">',
             f'<text x="8" y="22" font-size="15" fill="#808080">{purpose}: time, in terms of the library (shorter is faster)</text>']
    for place, (name, value) in enumerate(rows):
        top, length = 36 + 28 * place, max(2, 400 * value / longest)
        colour = "#2a6fbb" if name == "library" else "#9aa5b1"
        lines.append(f'<text x="104" y="{top + 15}" text-anchor="end" fill="#808080">{name}</text>')
        lines.append(f'<rect x="112" y="{top}" width="{length:.0f}" height="20" fill="{colour}"/>')
        lines.append(f'<text x="{120 + length:.0f}" y="{top + 15}" fill="#808080">{value / candidates["library"]:.2f}</text>')
    lines.append("</svg>")
    with open(f"{directory}/{purpose.lower()}.svg", "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


def main(arguments):
    directory = None
    if "--svg" in arguments:
        place = arguments.index("--svg")
        directory = arguments[place + 1]
        del arguments[place:place + 2]
    if not arguments:
        sys.exit(__doc__)
    times = medians(arguments)
    print_goals(times)
    print_shares(times)
    if directory:
        for purpose, candidates in purposes(times).items():
            draw(directory, purpose, candidates)


if __name__ == "__main__":
    main(sys.argv[1:])
