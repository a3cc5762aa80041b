#!/usr/bin/env bash
# Usage: run.sh <include directory> <source> <compiler>...
# The source's first line says what each compiler must do:
#   // expect: <text>   refuse the file, with <text> standing whole in its messages
#   // expect-ok        accept it
# A second line, // flags: <flags>, adds to the compiler's flags; // errors: <number> says how many errors there are.
# A compiler that is not installed, or is listed twice, is passed over; at least one must be there.
set -euo pipefail

include_dir=$1 source=$2
shift 2
first_line=$(head -n 1 "$source")
read -r -a flags <<< "$(sed -n '2s|^// flags: ||p' "$source")"
errors=$(sed -n '2s|^// errors: ||p' "$source")
declare -A done_compilers=()
failures=0

fail() {
    echo "$source: $1: $2"
    failures=$((failures + 1))
}

for compiler in "$@"; do
    path=$(command -v "$compiler") || continue
    path=$(readlink -f "$path")
    [[ -z ${done_compilers[$path]:-} ]] || continue
    done_compilers[$path]=1

    status=0
    output=$("$compiler" -std=c++17 -fsyntax-only -fmessage-length=0 "${flags[@]}" -I"$include_dir" "$source" 2>&1) || status=$?
    case $first_line in
        '// expect: '?*)
            expected=${first_line#// expect: }
            if [[ $status -eq 0 ]]; then
                fail "$compiler" "was accepted, expected: $expected"
            elif [[ $output != *"$expected"* ]]; then
                fail "$compiler" "was refused without the text: $expected"
                grep -E 'error:' <<< "$output" || echo "$output"
            elif [[ -n $errors && $(grep -c 'error:' <<< "$output") -ne $errors ]]; then
                fail "$compiler" "was refused with another number of errors than $errors"
                grep -E 'error:' <<< "$output"
            fi ;;
        '// expect-ok')
            if [[ $status -ne 0 ]]; then
                fail "$compiler" "was refused"
                grep -E 'error:' <<< "$output" || echo "$output"
            fi ;;
        *)
            echo "$source: the first line must be '// expect: <text>' or '// expect-ok'"
            exit 1 ;;
    esac
done

if [[ ${#done_compilers[@]} -eq 0 ]]; then
    echo "none of these compilers is installed: $*"
    exit 1
fi
[[ $failures -eq 0 ]]
