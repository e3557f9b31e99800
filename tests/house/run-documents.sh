#!/usr/bin/env bash
# Runs the commands that the documents show and compares what they print with what the documents say.
#   run-documents.sh BIN-FOLDER [PYTHON]             the blocks fenced as "console"; without PYTHON all but its scripts
#   run-documents.sh --windows BUILD-FOLDER RUNNER   those fenced as "console windows", against an installed package
#
# In such a block "$ COMMAND" is a command, and the lines up to the next one are all that it prints. A block after the
# comment "<!-- saved as NAME -->" is the file NAME. The commands of one document run one after the other in a folder
# with the repository's examples/ and the files of the first host and the first script.
set -euo pipefail
unset MATLIB_PATH
wanted=console
[[ $1 == --windows ]] && wanted="console windows" && shift
programs=$(realpath "$1")
runner=
python=
[[ $wanted == console ]] && python=${2:-} || runner=$(realpath "$2")
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
root=$PWD
work=$(mktemp -d "${TMPDIR:-/tmp}/documents.XXXXXX")
trap 'rm -rf "$work"' EXIT
if [[ -n $runner ]]; then
    version=$(sed -n 's/^#define MATERIALLIBRARY_VERSION "\(.*\)"/\1/p' include/MaterialLibrary/Version.h)
    package=MaterialLibrary-$version-windows-x64
    cmake --install "$programs" --prefix "$work/$package" >"$work/install.log"
fi

matlib() { "$programs/matlib" "$@"; }
python3()
{
    PYTHONPATH=$root/python MATERIALLIBRARY_PATH=$programs PYTHONDONTWRITEBYTECODE=1 command "$python" "$@"
}
wine() { "$runner" "$@" | tr -d '\r'; }

# run_commands DOCUMENT: what the document says goes to $work/said, what its commands print to $work/printed
run_commands()
{
    local line indent="" block="" saved="" skipped=false
    while IFS= read -r line <&3; do
        if [[ $line =~ ^(\ *)\`\`\`(.*)$ ]]; then
            if [[ -n $block ]]; then
                block="" saved=""
            else
                indent=${BASH_REMATCH[1]} block=${BASH_REMATCH[2]:-plain}
            fi
            continue
        fi
        line=${line#"$indent"}
        if [[ -z $block && $line =~ ^'<!-- saved as '(.*)' -->'$ ]]; then
            saved=${BASH_REMATCH[1]}
        elif [[ -n $block && -n $saved ]]; then
            printf '%s\n' "$line" >>"$saved"
        elif [[ $block == "$wanted" ]]; then
            [[ $line != '$ '* ]] || skipped=false
            [[ $line != '$ python3 '* || -n $python ]] || skipped=true
            $skipped && continue
            printf '%s\n' "$line" >>"$work/said"
            [[ $line == '$ '* ]] || continue
            printf '%s\n' "$line" >>"$work/printed"
            eval "${line#\$ }" </dev/null >>"$work/printed" 2>&1 || true
        elif [[ $line == '$ '* && $block != console && $block != "console windows" ]]; then
            echo "$1: \"$line\" stands in a block that is not fenced as \"console\"" >>"$work/printed"
        fi
    done 3<"$root/$1"
}

mistakes=0
commands=0
for document in *.md docs/*.md; do
    : >"$work/said" >"$work/printed"
    folder=$work/${document//\//-}
    mkdir "$folder"
    ln -s "$root/examples" "$root/examples/host/FirstValue.cpp" "$root/examples/python/laminate.py" "$root/examples/materials/DefaultMaterialD.mat" "$folder"
    [[ -z $runner ]] || ln -s "$work/$package" "$folder"
    cd "$folder"
    run_commands "$document"
    cd "$root"
    diff -u --label "$document" "$work/said" --label "printed" "$work/printed" || mistakes=$((mistakes + 1))
    commands=$((commands + $(grep -c '^\$ ' "$work/said" || true)))
done
echo "$commands commands${python:+, scripts with $python}"
((mistakes == 0 && commands > 0))
