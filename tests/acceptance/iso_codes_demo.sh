#!/usr/bin/env bash
# Usage: iso_codes_demo.sh <the demonstration program> <directory of sample files and of the output expected for them>
# Runs the program over the sample, over the files of the package iso-codes where it is installed, and over files that
# fail. Writes each difference; the exit code tells whether there was one.
set -uo pipefail
source "${BASH_SOURCE%/*}/demo_run.sh"
sample=$2
package=/usr/share/iso-codes/json

# broken_sample <file> <sed script>: makes a sample of which one file is changed.
broken_sample() {
    rm -rf "$work/sample"
    cp -r "$sample" "$work/sample"
    sed -i "$2" "$work/sample/$1"
}

run 0 "$sample"
diff "$sample/expected_output.txt" "$work/out" || complain "other output than expected for the sample"
[[ ! -s $work/err ]] || complain "errors for the sample: $(cat "$work/err")"

if [[ -d $package ]]; then
    run 0
    diff <(grep '^==' "$sample/expected_output.txt") <(grep '^==' "$work/out") || complain "other headings for the package"
    if grep -q '^FAILED' "$work/out"; then complain "a check failed for the package"; fi
    total=$(cat "$package"/iso_*.json | grep -c '^ *{ *$')
    grep -qx "together *$((total - 8))" "$work/out" || complain "not the $((total - 8)) records of the package"
fi

# A missing file: named together with what brings it.
run 1 "$work/nowhere"
[[ ! -s $work/out ]] || complain "output without files: $(cat "$work/out")"
grep -q "^Cannot read $work/nowhere/iso_15924.json\.$" "$work/err" || complain "the missing file is not named"
grep -q 'package iso-codes: install' "$work/err" || complain "the package is not named"

# A key that no class has: file, result code and sentence.
broken_sample iso_4217.json 's/"numeric": "963"/"number": "963"/'
run 1 "$work/sample"
grep -q "^$work/sample/iso_4217.json: result 722\. A comma or a closing brace" "$work/err" || complain "the key passed"

# A check that fails: told in its place, the later steps still run, and the exit code tells.
broken_sample iso_3166-1.json 's/"alpha_2": "NO"/"alpha_2": "ON"/'
run 1 "$work/sample"
grep -qx 'FAILED: found' "$work/out" || complain "no check failed without the record"
grep -qx '== Reading a broken file' "$work/out" || complain "a failed check ended the run"

run 2 one two
grep -q '^Usage: ' "$work/err" || complain "no usage told"

exit "$status"
