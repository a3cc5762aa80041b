#!/usr/bin/env python3
"""Usage: compile_cost.py <include directory> <work directory> [<compiler> [<standard>]]

What it costs to compile a description: user CPU seconds and bytes in the object file, a struct, above the same structs
that are only made and deleted. 50 structs of ten members in one file, -O2, the lowest of three runs.

  D  numbers, strings and one vector
  R  also a nested struct, a vector of structs, a unique_ptr to a struct, and a MayNull

The bytes are those of the object file, symbols and relocations included, as it is what the linker has to read. Exits
with 1 above the limits.
"""
import os
import resource
import subprocess
import sys

STRUCTS = 50
LIMITS = {"D": (0.02, 3000), "R": (0.03, 6000)}

HEADER = """#include <vexa/vexa.h>

#include <memory>
#include <string>
#include <vector>

namespace shapes {
struct Place { std::string city; std::string zip; int number = 0; };
"""

MEMBERS = {
    "D": ["int a = 0;", "long b = 0;", "double c = 0;", "bool d = false;", "unsigned int e = 0;", "short f = 0;",
          "std::string g;", "std::string h;", "std::string i;", "std::vector<int> j;"],
    "R": ["int a = 0;", "long b = 0;", "double c = 0;", "std::string d;", "std::string e;", "std::vector<int> f;",
          "{other} g;", "std::vector<{other}> h;", "std::unique_ptr<{other}> i;", "vexa::MayNull<int> j;"],
}


def source(kind, is_described):
    """The file with all structs; each holds the one before it, where its kind holds structs."""
    lines = [HEADER]
    if is_described:
        lines.append("VEXA_DESCRIBE(Place, city, zip, number)")
    other = "Place"
    for number in range(STRUCTS):
        name = f"{kind}{number}"
        lines.append(f"struct {name} {{ " + " ".join(MEMBERS[kind]).replace("{other}", other) + " };")
        if is_described:
            lines.append(f"VEXA_DESCRIBE({name}, a, b, c, d, e, f, g, h, i, j)")
        lines.append(f"{name}* Make{name}() {{ return new {name}; }}")
        lines.append(f"void Drop{name}({name}* object) {{ delete object; }}")
        other = name if number % 5 != 4 else "Place"
    lines.append("}")
    return "\n".join(lines) + "\n"


def compile_once(command):
    before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
    subprocess.run(command, check=True)
    return resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before


def cost(text, name, include, work, compiler, standard):
    path = os.path.join(work, name + ".cpp")
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    command = [compiler, f"-std={standard}", "-O2", "-I", include, "-c", path, "-o", path + ".o"]
    seconds = min(compile_once(command) for _ in range(3))
    return seconds, os.path.getsize(path + ".o")


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    include, work = sys.argv[1], sys.argv[2]
    compiler = sys.argv[3] if len(sys.argv) > 3 else "g++"
    standard = sys.argv[4] if len(sys.argv) > 4 else "c++17"
    os.makedirs(work, exist_ok=True)
    is_within = True
    print(f"{'a struct':<10} {'seconds':>9} {'at most':>9} {'bytes':>9} {'at most':>9}")
    for kind, (limit_seconds, limit_bytes) in LIMITS.items():
        described = cost(source(kind, True), kind, include, work, compiler, standard)
        plain = cost(source(kind, False), kind + "_plain", include, work, compiler, standard)
        seconds, size = ((described[i] - plain[i]) / STRUCTS for i in range(2))
        is_within = is_within and seconds <= limit_seconds and size <= limit_bytes
        print(f"{kind:<10} {seconds:>9.4f} {limit_seconds:>9.3f} {size:>9.0f} {limit_bytes:>9}")
    for name, text in (("vexa/vexa.h", "#include <vexa/vexa.h>\n"),
                       ("containers", "".join(f"#include <{header}>\n" for header in
                                              ("array", "bitset", "deque", "list", "map", "memory", "set", "string",
                                               "unordered_map", "unordered_set", "vector")))):
        seconds, _ = cost(text, name.replace("/", "_"), include, work, compiler, standard)
        print(f"{name:<12} alone: {seconds:.2f} s")
    sys.exit(0 if is_within else 1)


if __name__ == "__main__":
    main()
