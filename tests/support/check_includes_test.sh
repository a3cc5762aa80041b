#!/usr/bin/env bash
# Shows that check_includes.sh tells good trees from bad ones, each kind of breach by itself.
set -euo pipefail

check=$(cd "$(dirname "$0")" && pwd)/check_includes.sh
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# put <file> <line>...
put() {
    local file=$tree/$1
    shift
    mkdir -p "$(dirname "$file")"
    printf '%s\n' "$@" > "$file"
}

good_tree() {
    rm -rf "${tree:?}"/*
    put include/vexa/helper.h '#include <string>'
    put include/vexa/json.h '#include <vexa/helper.h>'
    put include/vexa/detail/attribute.h '#include <vexa/json.h>'
    put include/vexa/detail/slot.h '#include <vexa/helper.h>'
    put include/vexa/describe.h '#include <vexa/detail/attribute.h>' '#include <vexa/detail/slot.h>'
    put src/typeinfo/slot.cpp '#include <vexa/detail/slot.h>'
    put src/core/bounded.h '#include <cstring>'
    put src/text/writer.h '#include "core/bounded.h"'
    put src/text/writer.cpp '#include "text/writer.h"' '#include <vexa/json.h>'
    put tests/text/writer_test.cpp '#include <vexa/describe.h>' '#include "text/writer.h"'
}

expect_accepted() {
    local output
    if ! output=$("$check" "$tree"); then
        echo "refused a good tree: $output"
        failures=$((failures + 1))
    fi
}

# expect_refused <whole output>
expect_refused() {
    local output
    if output=$("$check" "$tree"); then
        echo "accepted a tree that must give: $1"
        failures=$((failures + 1))
    elif [[ $output != "$1" ]]; then
        printf 'expected: %s\nwas:      %s\n' "$1" "$output"
        failures=$((failures + 1))
    fi
}

good_tree
expect_accepted

good_tree
put src/core/log.cpp '#include <vexa/helper.h>' '#include "text/writer.h"'
expect_refused 'src/core/log.cpp:2: includes text/writer.h, which lies on a higher floor'

good_tree
put src/core/log.cpp '  #  include <vexa/json.h>'
expect_refused 'src/core/log.cpp:1: includes vexa/json.h, which lies on a higher floor'

good_tree
put include/vexa/helper.h '#include <string>' '#include <vexa/json.h>'
expect_refused 'include/vexa/helper.h:2: includes vexa/json.h, which lies on a higher floor
include/vexa/helper.h:2: closes a circle of includes with include/vexa/json.h'

good_tree
put src/core/bounded.h '#include "core/escape.h"'
put src/core/escape.h '#include "core/bounded.h"'
expect_refused 'src/core/escape.h:1: closes a circle of includes with src/core/bounded.h'

good_tree
put examples/demo/main.cpp '#include <vexa/detail/slot.h>'
expect_refused 'examples/demo/main.cpp:1: includes vexa/detail/slot.h, which only the public headers may do'

good_tree
put src/text/writer.cpp '#include <vexa/detail/attribute.h>'
expect_refused 'src/text/writer.cpp:1: includes vexa/detail/attribute.h, which only the public headers may do'

good_tree
put src/core/log.cpp '#include <vexa/detail/slot.h>'
expect_refused 'src/core/log.cpp:1: includes vexa/detail/slot.h, which lies on a higher floor'

good_tree
put src/core/log.cpp '#include "bounded.h"'
expect_refused 'src/core/log.cpp:1: write "room/bounded.h"'

good_tree
put src/core/log.cpp '#include "vexa/helper.h"'
expect_refused 'src/core/log.cpp:1: write <vexa/helper.h>'

good_tree
put include/vexa/helper.h '#include "core/bounded.h"'
expect_refused 'include/vexa/helper.h:1: a public header includes the private core/bounded.h'

good_tree
put src/core/log.cpp '#include "core/gone.h"'
expect_refused 'src/core/log.cpp:1: there is no src/core/gone.h'

good_tree
put src/attic/log.cpp '#include <vexa/helper.h>'
expect_refused 'src/attic/log.cpp:1: no floor is known for the room attic'

good_tree
put include/vexa/extra.h '#include <vexa/helper.h>'
expect_refused 'include/vexa/extra.h:1: no floor is known for the public header extra.h'

[[ $failures -eq 0 ]]
