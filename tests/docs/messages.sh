#!/bin/bash
# Every message that docs/language.md explains stands in the sources letter for letter. What is between pointed
# brackets is put in by the program. Usage: LANGUAGE.md SOURCE-FOLDER
set -euo pipefail
language=$1
sources=$2
all=$(mktemp)
trap 'rm -f "$all"' EXIT

# All string literals of the sources on one line, with literals that follow each other joined.
find "$sources" -name '*.cpp' -o -name '*.h' | LC_ALL=C sort | xargs cat |
    tr '\n' ' ' | sed -E 's/"[[:space:]]+"//g; s/\\"/"/g' >"$all"

checked=0 failed=0
while IFS= read -r message; do
    checked=$((checked + 1))
    # The pieces between the placeholders.
    while IFS= read -r piece; do
        [ ${#piece} -ge 4 ] || continue
        if ! grep -qF -- "$piece" "$all"; then
            echo "no message has: $piece"
            failed=$((failed + 1))
        fi
    done < <(sed -E 's/⟨[^⟩]*⟩/\n/g' <<<"$message")
done < <(awk '/^## Messages/ { on = 1 } /^## The history/ { on = 0 } on && /^\| `/' "$language" | sed -E 's/^\| `([^`]*)` \|.*/\1/')
echo "$checked messages, $failed pieces not found"
[ "$failed" -eq 0 ] && [ "$checked" -gt 60 ]
