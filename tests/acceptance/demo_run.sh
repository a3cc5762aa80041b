# Sourced by the scripts that look at what a demonstration program writes, which is their first argument. They end with
# exit "$status": it tells whether anything was complained of. Their files go to $work.
demo=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

complain() {
    echo "$*"
    status=1
}

# run <exit code expected> [argument]...: leaves the output in $work/out and $work/err.
run() {
    local expected_code=$1 code=0
    shift
    "$demo" "$@" > "$work/out" 2> "$work/err" || code=$?
    [[ $code -eq $expected_code ]] || complain "exit code $code instead of $expected_code for: $*"
}
