#!/usr/bin/env bash
# Has two editors' expressions find what matlib prints, and compares that with its JSON: editors-test.sh BIN-FOLDER
set -euo pipefail
matlib=$(realpath "$1")/matlib
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
files=(examples/broken tests/cli/data)

"$matlib" check "${files[@]}" >"$work/printed" && exit 1
"$matlib" check "${files[@]}" --json >"$work/json" && exit 1
python3 - "$work" <<'END'
import json, re, sys
work = sys.argv[1]
pattern = json.load(open("examples/editors/tasks.json"))["tasks"][0]["problemMatcher"]["pattern"]
keys = ("file", "line", "column", "severity", "message", "code")
found = []
for line in open(work + "/printed", encoding="utf-8"):
    match = re.search(pattern["regexp"], line.rstrip("\n"))
    if match:
        found.append([match[pattern[key]] for key in keys])
expected, listed = [], []
for file in json.load(open(work + "/json")):
    for one in file["findings"]:
        place = [file["path"], str(one["line"]), str(one["column"])]
        expected.append(place + [one["severity"], one["text"], one["rule"]])
        listed.append(":".join(place + [one["severity"][0], one["text"] + " [" + one["rule"] + "]"]))
        if "note" in one:
            note = one["note"]
            listed.append(":".join([file["path"], str(note["line"]), str(note["column"]), "n", note["text"]]))
assert len(expected) > 50 and found == expected, [pair for pair in zip(found, expected) if pair[0] != pair[1]][:1]
open(work + "/listed", "w").write("\n".join(listed) + "\n")
END
cat >"$work/list.vim" <<END
set encoding=utf-8
source examples/editors/matlib.vim
cgetfile $work/printed
let found = filter(getqflist(), 'v:val.valid')
let lines = map(found, 'join([bufname(v:val.bufnr), v:val.lnum, v:val.col, v:val.type, v:val.text], ":")')
call writefile(lines, '$work/vim')
qa!
END
vim -u NONE -N -es -S "$work/list.vim" </dev/null
diff "$work/listed" "$work/vim"
