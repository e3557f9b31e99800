# Completion of matlib's commands, options, material names and files for bash. What there is to complete comes from
# matlib's own help, so nothing here needs to follow a new option.

# The words in the first column of a section of the help: _matlib_words SECTION [COMMAND]
_matlib_words()
{
    matlib "${@:2}" --help 2>/dev/null |
        awk -v section="$1:" '/^[A-Z]/ { inside = $1 == section } inside && /^  / { sub(/.*,/, "", $1); print $1 }'
}

# The words that the help of an option offers after its last colon ("What to choose: dielectric or metal").
_matlib_choices()
{
    matlib "$1" --help 2>/dev/null | sed -n "s/^ *$2 .*: //p" | sed 's/,/ /g; s/ or / /g' | tr ' ' '\n'
}

_matlib_materials()
{
    local arguments=() i
    for ((i = 1; i + 1 < ${#COMP_WORDS[@]}; ++i)); do
        if [[ ${COMP_WORDS[i]} == --lib && -n ${COMP_WORDS[i + 1]} ]]; then
            arguments+=(--lib "${COMP_WORDS[i + 1]//[\"\'\\]/}") # as typed, without the shell's quoting
        fi
    done
    matlib list --json "${arguments[@]}" 2>/dev/null | sed -n 's/^    "name": "\(.*\)",$/\1/p'
}

# Offers the lines of a text that begin with the current word, quoted for the shell.
_matlib_offer()
{
    local candidate typed=${COMP_WORDS[COMP_CWORD]}
    typed=${typed#[\"\']}
    while IFS= read -r candidate; do
        [[ -n $candidate && $candidate == "$typed"* ]] && COMPREPLY+=("$(printf '%q' "$candidate")")
    done
}

_matlib()
{
    local word command="" current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} i
    local commands
    COMPREPLY=()
    commands=$(_matlib_words Subcommands)
    for ((i = 1; i < COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        [[ -n $word && $'\n'$commands$'\n' == *$'\n'"$word"$'\n'* ]] && command=$word && break
    done
    case $previous in
    --lib | --dll | --out | -o | --output)
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        return
        ;;
    --kind | --technology | --sort | --color | --template | --separator | --decimal)
        _matlib_offer < <(_matlib_choices "$command" "$previous")
        return
        ;;
    --current)
        _matlib_offer < <(_matlib_materials)
        return
        ;;
    --freq | --from | --to | --points | --temp | --size | --type | --vendor | --thickness | --poles | --allow | --deny | \
        --explain | --map | --unit | --ignore | --empty)
        return
        ;;
    esac
    if [[ $current == -* ]]; then
        _matlib_offer < <(_matlib_words Options $command)
    elif [[ -z $command ]]; then
        _matlib_offer <<<"$commands"
    elif [[ $command == @(check|format|import) ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    else
        _matlib_offer < <(_matlib_materials)
    fi
}
complete -o filenames -F _matlib matlib
