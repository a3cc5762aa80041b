#!/usr/bin/env bash
# Usage: check_document_paths.sh <root of the tree>
# Every path that a document of the tree names between back quotes must exist, or the document has gone stale. A path
# is what begins with a directory of the tree, or the bare name of a public header; a wildcard must match something.
set -euo pipefail
cd "$1"

# shellcheck disable=SC2016 # the back quotes are literal
path_in_back_quotes='`(include|src|tests|examples|bench|fuzz|docs|cmake|\.ci)/[A-Za-z0-9_./*-]*`|`[a-z_]+\.h`'
status=0
seen=0
while IFS=: read -r document line path; do
    path=${path//\`/}
    seen=$((seen + 1))
    if [[ $path != */* ]]; then path=include/vexa/$path; fi
    if ! compgen -G "$path" > /dev/null; then
        echo "$document:$line: there is no $path"
        status=1
    fi
done < <(grep -noHE "$path_in_back_quotes" ./*.md docs/*.md)

if [[ $seen -eq 0 ]]; then
    echo "no document names any path: the search has gone blind"
    status=1
fi
exit $status
