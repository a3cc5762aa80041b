#!/usr/bin/env bash
# Usage: live_sql_demo.sh <the demonstration program> <directory of a sample file and of the output expected for it>
# Runs the program over the sample, over the package iso-codes where it is installed, and
# over a directory without files. Writes each difference; the exit code tells whether there was one.
set -uo pipefail
source "${BASH_SOURCE%/*}/demo_run.sh"
data=$2
package=/usr/share/iso-codes/json

run 0 "$data"
diff "$data/expected_output.txt" "$work/out" || complain "other output than expected for the sample"
[[ ! -s $work/err ]] || complain "errors for the sample: $(cat "$work/err")"

if [[ -d $package ]]; then
    run 0
    diff <(grep '^[>e]' "$data/expected_output.txt") <(grep '^[>e]' "$work/out") || complain "other statements or errors"
    total=$(grep -c '"alpha_3"' "$package/iso_639-3.json")
    grep -qx "$total" "$work/out" || complain "not the $total languages of the package"
    sum=$(awk -F ' [|] ' 'NF == 4 { sum += $3 } END { print sum }' "$work/out")
    [[ $sum -eq $total ]] || complain "the groups have $sum languages, not $total"
fi

run 1 "$work/nowhere"
grep -q "^Cannot read $work/nowhere/iso_639-3.json: install " "$work/err" || complain "the missing file is not named"

run 2 one two
grep -q '^Usage: ' "$work/err" || complain "no usage told"

exit "$status"
