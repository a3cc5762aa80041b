#!/usr/bin/env bash
# Usage: check_exports.sh <library>
# What the library exports of its own lies in the namespace vexa, but not in its private parts; the one function outside
# is the assertion's. Weak symbols, which come from templates of the standard library and of ACE, are not looked at.
set -euo pipefail

exported=$(nm --dynamic --defined-only --demangle "$1" | awk '$2 ~ /^[TDBR]$/ { sub(/^[^ ]* . /, ""); print }')
if [[ $exported != *'vexa::'* ]]; then
    echo "nothing of the namespace vexa is exported"
    exit 1
fi
stray=$(grep -vE '^((vtable|typeinfo|typeinfo name) for )?vexa::(Enum::|helper::|detail::)?~?[A-Za-z_]|^___Coredump_due_to_assertion_failure___|^_(init|fini)$' \
    <<< "$exported" || true)
private=$(grep -E '^((vtable|typeinfo|typeinfo name) for )?vexa::(core|typeinfo|reference|text|record|interchange|access)::' <<< "$exported" || true)
if [[ -n $stray$private ]]; then
    printf 'exported by mistake:\n%s\n%s\n' "$stray" "$private"
    exit 1
fi
