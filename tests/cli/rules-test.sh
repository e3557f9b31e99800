#!/usr/bin/env bash
# Checks that each rule of "matlib check" has a section in its page, that the wrong file there breaks this rule and the
# right one no rule at all, and that --explain prints it: rules-test.sh BIN-FOLDER
set -euo pipefail
matlib=$(realpath "$1")/matlib
root=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../..")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

failures=0
fail()
{
    echo "$*"
    failures=$((failures + 1))
}

# block RULE NUMBER: a fenced block of the rule's section
block()
{
    awk -v heading="## $1" -v wanted="$2" '/^## / { inside = $0 == heading } inside && /^```$/ { ++fences; next }
        inside && fences == 2 * wanted - 1 { print }' "$root/docs/check-rules.md"
}

rules=$(sed -n 's/^inline constexpr std::string_view .* = "\(.*\)";.*/\1/p' "$root/tools/matlib/check/Rules.h")
[[ $(sed -n 's/^## //p' "$root/docs/check-rules.md") == "$rules" ]] || fail "the page has other rules, or in another order"
for rule in $rules; do
    block "$rule" 1 >wrong.mat
    block "$rule" 2 >right.mat
    case $rule in
    byte-order-mark) sed -i '1s/^/\xEF\xBB\xBF/' wrong.mat ;;
    utf-16) iconv -t UTF-16 wrong.mat -o wide.mat && mv wide.mat wrong.mat ;;
    esac
    "$matlib" check wrong.mat >wrong.txt || true
    grep -qF "[$rule]" wrong.txt || fail "$rule: $(cat wrong.txt)"
    "$matlib" check --strict right.mat >right.txt || fail "$rule: $(cat right.txt)"
    "$matlib" check --explain "$rule" >page.txt
    diff <(sed 's/^/    /' right.mat) <(tail -n "$(wc -l <right.mat)" <(sed '/^$/d' page.txt)) || fail "$rule: another page"
done
((failures == 0))
