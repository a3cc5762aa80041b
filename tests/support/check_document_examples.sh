#!/usr/bin/env bash
# Usage: check_document_examples.sh <root of the tree> <library> <compiler> <work directory> [<format>=<library>...]
# Every C++ block of the documents is a whole program. It must compile and run, and write what the text block right
# after it shows, if there is one. One that includes the header of a format, <vexa/yaml.h>, is linked with the libraries
# given for that, separated by semicolons, and left out with a notice where none are.
set -euo pipefail

root=$1 library=$2 compiler=$3 work=$4
shift 4
declare -A format_libraries=([yaml]="" [cbor]="" [sqlite]="")
for given in "$@"; do format_libraries[${given%%=*}]=${given#*=}; done
rm -rf "$work"
mkdir -p "$work"

for document in "$root"/*.md "$root"/docs/*.md; do
    # <document>.<number>.cpp, and <document>.<number>.txt from a text block with nothing but empty lines before it.
    awk -v base="$work/$(basename "$document")" '
        /^```/ && open { close(out); after_program = (open == "cpp"); open = ""; next }
        open { print > out; next }
        /^```cpp$/ { open = "cpp"; out = base "." ++count ".cpp"; next }
        /^```text$/ && after_program { open = "text"; out = base "." count ".txt"; next }
        /^```/ { open = "other"; out = "/dev/null"; next }
        /[^[:space:]]/ { after_program = 0 }
    ' "$document"
done

# collect_libraries <source>: leaves what it is linked with in `libraries`; fails where that was not built.
collect_libraries() {
    local format of_format
    libraries=("$library")
    for format in "${!format_libraries[@]}"; do
        grep -q "^#include <vexa/$format.h>" "$1" || continue
        [[ -n ${format_libraries[$format]} ]] || return 1
        IFS=';' read -ra of_format <<< "${format_libraries[$format]}"
        libraries+=("${of_format[@]}" -Wl,-rpath,"$(dirname "${of_format[0]}")")
    done
}

count=0
status=0
for source in "$work"/*.cpp; do
    [[ -e $source ]] || break
    count=$((count + 1))
    program=${source%.cpp}
    if ! collect_libraries "$source"; then
        echo "$(basename "$source"): left out, since its format was not built"
        continue
    fi
    if ! "$compiler" -std=c++17 -Wall -Wextra -Werror -I"$root/include" "$source" -o "$program" \
        "${libraries[@]}" -Wl,-rpath,"$(dirname "$library")" || ! "$program" > "$program.out"; then
        echo "$(basename "$source"): does not compile or does not run"
        status=1
    elif [[ -e $program.txt ]] && ! diff -u "$program.txt" "$program.out"; then
        echo "$(basename "$source"): wrote something else than the document shows"
        status=1
    fi
done

if [[ $count -eq 0 ]]; then
    echo "no document holds an example: the search has gone blind"
    status=1
fi
exit $status
