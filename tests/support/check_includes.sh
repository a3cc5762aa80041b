#!/usr/bin/env bash
# Usage: check_includes.sh <root of the tree>
# Checks that an #include points down a floor or along it, never up, that no circle of headers exists, and that nobody
# but the public headers includes include/vexa/detail/; the library includes what it compiles a half of itself, the
# detail headers with a floor. Writes each breach as file:line: what is wrong.
set -euo pipefail
cd "$1"

{ for dir in include src formats tests examples bench fuzz; do
    if [[ -d $dir ]]; then find "$dir" -type f \( -name '*.h' -o -name '*.cpp' \); fi
done; } | sort | xargs -r grep -nH '^[[:space:]]*#[[:space:]]*include[[:space:]]*["<]' | awk '
function complain(text) { print where ": " text; bad = 1 }

# The floor of a file of the tree; 0 where no rule about floors applies.
function floor_of(file,    name) {
    if (file ~ /^src\//) {
        split(file, parts, "/")
        if (parts[2] in room_floor) return room_floor[parts[2]]
        complain("no floor is known for the room " parts[2])
        return 0
    }
    if (file ~ /^include\/vexa\//) {
        name = file
        sub(/^include\/vexa\//, "", name)
        if (name in public_floor) return public_floor[name]
        if (name ~ /^detail\//) return top
        complain("no floor is known for the public header " name)
    }
    return 0
}

function floors(floor, names,    list, i, n) {
    n = split(names, list, " ")
    for (i = 1; i <= n; i++) public_floor[list[i] ".h"] = floor
}

# Depth-first: a header met again while it is still open closes a circle.
function visit(file,    i, next_file) {
    state[file] = "open"
    for (i = 1; i <= edges[file]; i++) {
        next_file = edge[file, i]
        where = edge_where[file, i]
        if (state[next_file] == "open") complain("closes a circle of includes with " next_file)
        else if (state[next_file] == "") visit(next_file)
    }
    state[file] = "done"
}

BEGIN {
    split("core typeinfo reference text record interchange access", rooms, " ")
    for (i in rooms) room_floor[rooms[i]] = i + 0
    top = 8
    floors(1, "export detail/module data_type helper value_state binary date_time numeric detail/basic_code")
    floors(2, "metadata class_metadata find_class type_infor custom_type_infor container_infor class_infor detail/slot detail/vector detail/cursor_memory detail/description detail/enumeration detail/shape")
    floors(3, "refrence class_refrence container_refrence group")
    floors(4, "text json")
    floors(5, "value table")
    floors(6, "report event format policy json_tree detail/interchange")
    floors(7, "detail/access detail/bound_way detail/element_access")
    floors(top, "access bound_path elements may_null types describe interchange vexa yaml cbor sqlite")
}

{
    match($0, /:[0-9]+:/)
    file = substr($0, 1, RSTART - 1)
    where = substr($0, 1, RSTART + RLENGTH - 2)
    rest = substr($0, RSTART + RLENGTH)
    match(rest, /["<][^">]*[">]/)
    quoted = substr(rest, RSTART, 1) == "\""
    name = substr(rest, RSTART + 1, RLENGTH - 2)
    is_public = file ~ /^include\//
    is_private = file ~ /^src\//

    if (name ~ /^vexa\/detail\// && !is_public && !(is_private && substr(name, 6) in public_floor)) {
        complain("includes " name ", which only the public headers may do")
        next
    }
    if (!is_public && !is_private) next

    target = ""
    if (name ~ /^vexa\//) {
        if (quoted) complain("write <" name ">")
        target = "include/" name
    } else if (quoted) {
        if (is_public) { complain("a public header includes the private " name); next }
        split(name, parts, "/")
        if (!(parts[1] in room_floor) || name !~ /\//) { complain("write \"room/" name "\""); next }
        target = "src/" name
    }
    if (target == "") next

    if ((getline line < target) < 0) { complain("there is no " target); next }
    close(target)
    from = floor_of(file)
    to = floor_of(target)
    if (from && to && to > from) complain("includes " name ", which lies on a higher floor")
    if (!(file in edges)) files[++count] = file
    edges[file]++
    edge[file, edges[file]] = target
    edge_where[file, edges[file]] = where
}

END {
    for (i = 1; i <= count; i++) if (state[files[i]] == "") visit(files[i])
    exit bad
}
'
