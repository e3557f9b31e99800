#!/usr/bin/env bash
# Checks that the documents show the files that they say they show, a comment with the file's name before the code,
# and that what their links lead to exists: check-documents.sh [FOLDER], the tree or the documentation of a package.
set -euo pipefail
cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../..}"

mistakes=0
mistake()
{
    echo "$1"
    mistakes=$((mistakes + 1))
}

for document in *.md docs/*.md; do
    while IFS= read -r file; do
        shown=$(awk -v mark="<!-- $file -->" '$0 == mark { wanted = 1; next } wanted && /^```$/ { exit }
            wanted && !/^```/ { print }' "$document")
        diff -u <(cat "$file") <(echo "$shown") || mistake "$document shows another $file"
    done < <(sed -n '/^<!-- saved as /!s/^<!-- \(.*\) -->$/\1/p' "$document")
    while IFS= read -r target; do
        [[ -e $(dirname "$document")/$target ]] || mistake "$document links $target, which is not there"
    done < <(grep -o ']([^)#]*' "$document" | sed 's/^](//' | grep -v '^https\?:' | grep . || true)
done
((mistakes == 0))
