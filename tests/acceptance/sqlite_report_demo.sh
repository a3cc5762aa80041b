#!/usr/bin/env bash
# Usage: sqlite_report_demo.sh <the demonstration program> <directory of the output expected, and of the files that replace
# some of the sample files of the example iso_codes>
# Runs the program over the sample, over the files of the package iso-codes where it is installed, and over files that
# fail. Writes each difference; the exit code tells whether there was one.
set -uo pipefail
source "${BASH_SOURCE%/*}/demo_run.sh"
data=$2
expected=$data/expected_output.txt
package=/usr/share/iso-codes/json

# The times of files are shown as local ones. The database has a temporary directory of its own, to be looked into.
export TZ=UTC TMPDIR=$work/tmp
mkdir "$TMPDIR" "$work/sample"
cp "$data"/../iso_codes/*.json "$work/sample"
cp "$data"/*.json "$work/sample"
touch -d '2001-02-03 04:05:06' "$work/sample"/*

run 0 "$work/sample"
diff "$expected" "$work/out" || complain "other output than expected for the sample"
[[ ! -s $work/err ]] || complain "errors for the sample: $(cat "$work/err")"

if [[ -d $package ]]; then
    run 0
    diff <(grep -E '^(==|ok)' "$expected") <(grep -E '^(==|ok|FAILED)' "$work/out") || complain "a check failed for the package"
    grep -qx 'Country *249 rows' "$work/out" || complain "not the 249 countries of the package"
fi

# A check that fails: told in its place, the later steps still run, and the exit code tells.
sed -i 's/"alpha_2": "NO"/"alpha_2": "ON"/' "$work/sample/iso_3166-1.json"
run 1 "$work/sample"
grep -q '^FAILED' "$work/out" || complain "no check failed without the record"
grep -qx '== Reading columns that do not fit the class' "$work/out" || complain "a failed check ended the run"

# No room for a database.
TMPDIR=$work/nowhere run 1 "$work/sample"
grep -q 'No such file or directory' "$work/err" || complain "the missing directory is not told"

# A missing file: named together with what brings it.
run 1 "$work/nowhere"
[[ ! -s $work/out ]] || complain "output without files: $(cat "$work/out")"
grep -q "^Cannot read $work/nowhere/iso_15924.json\.$" "$work/err" || complain "the missing file is not named"
grep -q 'package iso-codes: install' "$work/err" || complain "the package is not named"

run 2 one two
grep -q '^Usage: ' "$work/err" || complain "no usage told"

exit "$status"
