#!/usr/bin/env bash
# Usage: check_counts.sh <program counted> <stored counts> [--store]
# Counts the instructions of each workload (the difference between three runs and one, so that start-up and registration
# drop out) and fails when one took above 5 % more than the stored count. --store writes the counts down instead.
set -euo pipefail

program=$1 stored=$2 mode=${3:-}
allowed_percent=5

# instructions <workload> <times>
instructions() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$1" "$2" 2>&1 |
        sed -n 's/.*Collected : \([0-9]*\).*/\1/p'
}

status=0
counts=()
printf '%-8s %15s %15s %8s\n' workload instructions stored change
for workload in W1 W2 R1 R2 SW1 SW2 SR1 SR2 Text Names; do
    once=$(instructions "$workload" 1)
    thrice=$(instructions "$workload" 3)
    count=$(((thrice - once) / 2))
    counts+=("$workload $count")
    before=$(awk -v name="$workload" '$1 == name { print $2 }' "$stored" 2> /dev/null || true)
    change=-
    if [[ -n $before ]]; then
        change=$(awk -v now="$count" -v before="$before" 'BEGIN { printf "%+.1f%%", 100 * (now / before - 1) }')
        if ((count * 100 > before * (100 + allowed_percent))); then status=1; fi
    elif [[ $mode != --store ]]; then
        status=1
    fi
    printf '%-8s %15s %15s %8s\n' "$workload" "$count" "${before:--}" "$change"
done
if [[ $mode == --store ]]; then
    printf '%s\n' "${counts[@]}" > "$stored"
    exit 0
fi
[[ $status -eq 0 ]] || echo "A workload takes above $allowed_percent % more instructions than stored, or has no stored count." >&2
exit $status
