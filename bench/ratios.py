#!/usr/bin/env python3
"""Usage: ratios.py <results.json>... [--svg <directory>] [--document <file>]

Reads what Google Benchmark wrote (with repetitions, aggregates or not), takes the median CPU time of each row and prints
the table of ratios against the goals. Rows are named <purpose>/<candidate>. With --svg it also draws one bar chart a
purpose; with --document it writes both tables into docs/performance.md. An absolute figure means nothing on another
machine: only ratios within one run are shown.
"""
import json
import re
import statistics
import sys

# (purpose, what it is, the library's candidate, candidate to compare with, larger is better, goal)
GOALS = [
    ("W1", "ToJson into a reused string, W1, share of the table reference's speed", "library", "table", True, 1.0),
    ("W2", "ToJson into a reused string, W2, share of the table reference's speed", "library", "table", True, 1.0),
    ("R1", "FromJson R1, share of the table reference's speed", "library", "table", True, 1.0),
    ("R2", "FromJson R2, share of the table reference's speed", "library", "table", True, 1.0),
    ("R1", "FromJson R1, share of the speed of simdjson on-demand by hand", "library", "simdjson", True, 1.0),
    ("R2", "FromJson R2, share of the speed of simdjson on-demand by hand", "library", "simdjson", True, 1.0),
    ("W1", "WriteJson into a reused string, W1, share of the table reference's speed", "standard", "table", True, 0.9),
    ("W2", "WriteJson into a reused string, W2, share of the table reference's speed", "standard", "table", True, 0.9),
    ("W1", "WriteJson W1, times the speed of RapidJSON's Writer by hand", "standard", "rapidjson", True, 3.0),
    ("W2", "WriteJson W2, times the speed of RapidJSON's Writer by hand", "standard", "rapidjson", True, 3.0),
    ("R1", "ReadJson R1, share of the speed of simdjson on-demand by hand", "standard", "simdjson", True, 1.0),
    ("R2", "ReadJson R2, share of the speed of simdjson on-demand by hand", "standard", "simdjson", True, 1.0),
    ("R1", "ReadJson R1, times the speed of a RapidJSON handler by hand", "standard", "rapidjson", True, 1.5),
    ("R2", "ReadJson R2, times the speed of a RapidJSON handler by hand", "standard", "rapidjson", True, 1.5),
    ("DoublesOut", "WriteJson of 100,000 random doubles, times std::to_chars alone", "standard", "hand", False, 1.2),
    ("DoublesIn", "ReadJson of 100,000 random doubles, times std::from_chars alone", "standard", "hand", False, 1.2),
    ("Text20", "AsString of an object of 20 attributes, times the hand-written appends", "library", "hand", False, 1.3),
    ("LookUp", "FindAttribByName, random of 20, times an unordered_map<string_view> look-up", "library", "hand", False,
     0.7),
    ("HeldInt", "read an int by a held reference, times a call through a function pointer", "library", "hand", False,
     1.3),
    ("Walk", "walk of a vector<int> of 100,000 with As_int, times a loop through a function pointer", "library", "hand",
     False, 1.3),
    ("Numeric", "CNumeric from the double 1234.5678, times std::to_chars with six decimals", "library", "hand", False,
     2.0),
    ("BoundPath", "CBoundPath::Get of customer.address.zip, times a function of one's own", "library", "hand", False, 3.0),
    ("BoundElement", "CBoundPath::Get of items[1].price, times a function of one's own", "library", "hand", False, 3.0),
    ("SqlEqual", "SQL, equality on an indexed column of 1,000,000 live objects, times SQLite's own table", "library",
     "sqlite", False, 3.0),
    ("SqlAggregate", "SQL, aggregate over 1,000,000 live objects, times SQLite's own table", "library", "sqlite", False,
     3.0),
]
OWN = ("library", "standard")


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


def measured(times):
    """(what, ratio or None, the goal in words, whether it is met) of each goal."""
    for purpose, what, own, other, larger, goal in GOALS:
        library, reference = times.get(f"{purpose}/{own}"), times.get(f"{purpose}/{other}")
        ratio = None
        if library is not None and reference is not None:
            ratio = reference / library if larger else library / reference
        met = ratio is not None and (ratio >= goal if larger else ratio <= goal)
        yield what, ratio, f"at {'least' if larger else 'most'} {goal:.1f}", met


def print_goals(times):
    print(f"{'what':<92} {'measured':>8}  goal")
    for what, ratio, goal, met in measured(times):
        if ratio is None:
            print(f"{what:<92} {'-':>8}")
        else:
            print(f"{what:<92} {ratio:>8.2f}  {goal} {'' if met else '  missed'}")


def purposes(times):
    """The times of each purpose's candidates, and the one that they are told in terms of."""
    found = {}
    for name, value in times.items():
        purpose, _, candidate = name.partition("/")
        if candidate and any(f"{purpose}/{own}" in times for own in OWN):
            found.setdefault(purpose, {})[candidate] = value
    return found


def unit_of(candidates):
    return next(candidates[own] for own in OWN if own in candidates)


def shares(times):
    for purpose, candidates in purposes(times).items():
        line = ", ".join(f"{name} {value / unit_of(candidates):.2f}"
                         for name, value in sorted(candidates.items(), key=lambda item: item[1]))
        yield f"{purpose:<10} {line}"


def print_shares(times):
    print("\nTime of each candidate, times the library's (below 1 is faster than the library):")
    for line in shares(times):
        print(f"  {line}")


def write_document(path, times):
    """Puts both tables in place of those that the document has."""
    with open(path, encoding="utf-8") as file:
        text = file.read()
    goals = "".join(f"| {what} | {ratio:.2f} | {goal} |\n" for what, ratio, goal, _ in measured(times) if ratio)
    text, first = re.subn(r"(\| What \| Measured \| Goal \|\n\|[-|]*\n)(\|.*\n)*", lambda found: found[1] + goals, text)
    text, second = re.subn(r"(\nTime of each candidate[^`]*```text\n)[^`]*", lambda found: found[1] + "".join(
        line + "\n" for line in shares(times)), text)
    if (first, second) != (1, 1):
        sys.exit(f"{path}: the tables are not where they are expected")
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def draw(directory, purpose, candidates):
    """One bar a candidate, its length the time in terms of the library's."""
    rows = sorted(candidates.items(), key=lambda item: item[1])
    longest = rows[-1][1]
    height = 28 * len(rows) + 44
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="640" height="{height}" font-family="sans-serif" font-size="13">',
             f'<text x="8" y="22" font-size="15" fill="#808080">{purpose}: time, in terms of the library (shorter is faster)</text>']
    for place, (name, value) in enumerate(rows):
        top, length = 36 + 28 * place, max(2, 400 * value / longest)
        colour = "#2a6fbb" if name in OWN else "#9aa5b1"
        lines.append(f'<text x="104" y="{top + 15}" text-anchor="end" fill="#808080">{name}</text>')
        lines.append(f'<rect x="112" y="{top}" width="{length:.0f}" height="20" fill="{colour}"/>')
        lines.append(f'<text x="{120 + length:.0f}" y="{top + 15}" fill="#808080">{value / unit_of(candidates):.2f}</text>')
    lines.append("</svg>")
    with open(f"{directory}/{purpose.lower()}.svg", "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


def main(arguments):
    options = {"--svg": None, "--document": None}
    for option in options:
        if option in arguments:
            place = arguments.index(option)
            options[option] = arguments[place + 1]
            del arguments[place:place + 2]
    if not arguments:
        sys.exit(__doc__)
    times = medians(arguments)
    print_goals(times)
    print_shares(times)
    if options["--document"]:
        write_document(options["--document"], times)
    if options["--svg"]:
        for purpose, candidates in purposes(times).items():
            draw(options["--svg"], purpose, candidates)


if __name__ == "__main__":
    main(sys.argv[1:])
