#!/usr/bin/env bash
# Usage: order_service_demo.sh <the demonstration program> <directory of the output expected>
# Writes each difference; the exit code tells whether there was one.
set -uo pipefail
source "${BASH_SOURCE%/*}/demo_run.sh"
expected=$2/expected_output.txt

# What is written does not depend on where it is run.
TZ=Asia/Tokyo run 0
diff "$expected" "$work/out" || complain "other output than expected"
[[ ! -s $work/err ]] || complain "errors: $(cat "$work/err")"
if grep -q 4111111111111111 "$work/out"; then complain "a confidential value is shown"; fi

run 2 unexpected
grep -q '^Usage: ' "$work/err" || complain "no usage told"

exit "$status"
