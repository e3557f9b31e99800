#!/usr/bin/env bash
# Checks the manual page and the completion against what matlib itself says: shell-test.sh BIN-FOLDER MANUAL
set -euo pipefail
unset MATLIB_PATH
BIN=$(realpath "$1")
manual=$(realpath "$2")
cd "$(dirname "${BASH_SOURCE[0]}")"
PATH=$BIN:$PATH
source ../../tools/matlib/shell/matlib.bash

failures=0
expect() # WHAT EXPECTED PRINTED
{
    [[ $2 == "$3" ]] && return
    printf '%s: expected "%s", got "%s"\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}

# complete_line WORD...: what is offered for the last word
complete_line()
{
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    _matlib
    echo "${COMPREPLY[*]}"
}
expect "a command" "show sweep" "$(complete_line matlib s)"
expect "an option" "--log" "$(complete_line matlib sweep --lo)"
expect "a kind" "losstangent" "$(complete_line matlib value X --kind l)"
expect "a sort key" "thickness" "$(complete_line matlib list --sort thi)"
expect "a name" "Getinaks Getinaks\\ -\\ 2" "$(complete_line matlib show Get)"
expect "a quoted name" "Core\\ A Core\\ B" "$(complete_line matlib sweep --lib data/laminates.mat '"Core')"
expect "a file" "data/laminates.mat" "$(complete_line matlib check data/lam)"
expect "a template" "laminate" "$(complete_line matlib import --template lam)"
expect "a separator" "semicolon" "$(complete_line matlib import --separator s)"
expect "a file to format" "data/laminates.mat" "$(complete_line matlib format data/lam)"
expect "a library" "data/laminates.mat" "$(complete_line matlib list --lib data/lam)"
expect "a number" "" "$(complete_line matlib sweep X --points '')"

page=$(man --warnings -E UTF-8 -Tutf8 -l "$manual" 2>&1 | col -b)
expect "warnings of the formatter" "" "$(man --warnings -E UTF-8 -Tutf8 -l "$manual" 2>&1 >/dev/null)"
for command in "" $(_matlib_words Subcommands); do
    for word in $command $(_matlib_words Options $command); do
        [[ $page == *"$word"* ]] || expect "the manual page" "$word" "nothing of it"
    done
done
((failures == 0))
