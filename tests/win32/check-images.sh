#!/usr/bin/env bash
# What stands in the headers and resources of the delivered files: check-images.sh OBJDUMP BUILD-FOLDER VERSION
set -euo pipefail
objdump=$1
module=$2/bin/MaterialLibrary.dll
headers=$("$objdump" -p "$module")
fail() { echo "check-images.sh: $*" >&2 && exit 1; }
expect() { [[ $2 == "$3" ]] || fail "$1: expected \"$2\", got \"$3\""; }

expect "the exports" "CreateMaterialLibrary FreeMaterialLibrary" \
    "$(sed -n '/Ordinal\/Name Pointer/,/^$/s/^\s*\[ *[0-9]*\] //p' <<<"$headers" | xargs)"
expect "the imported modules" "ADVAPI32 COMCTL32 GDI32 KERNEL32 USER32 UxTheme comdlg32 msvcrt" \
    "$(sed -n 's/.*DLL Name: \(.*\)\.dll/\1/p' <<<"$headers" | LC_ALL=C sort | xargs)"

# Windows may place it anywhere and runs no data.
for flag in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
    [[ $headers == *$flag* ]] || fail "no $flag"
done
grep -q "Entry 5 0*[1-9a-f][0-9a-f]* 0*[1-9a-f][0-9a-f]* Base Relocation" <<<"$headers" || fail "cannot be moved"
! "$objdump" -h "$module" | grep CODE | grep -v READONLY || fail "a section that runs can be written"

largest=$((1536 * 1024))
size=$(stat -c %s "$module")
echo "$size bytes"
((size <= largest)) || fail "larger than $largest bytes"
(($(stat -c %s "$module.debug") > largest)) || fail "no debug information beside it"

# The version as numbers follows a signature; as a text it is in UTF-16.
IFS=. read -r major minor patch <<<"$3"
numbers=$(printf '\\xbd\\x04\\xef\\xfe\\x00\\x00\\x01\\x00\\x%02x\\x00\\x%02x\\x00\\x00\\x00\\x%02x\\x00' \
    "$minor" "$major" "$patch")
for file in bin/MaterialLibrary.dll:2 bin/matlib.exe:1 bin/matlib-modules/MsgHandler.dll:2 examples/messages/MsgHandler.dll:2; do
    path=$2/${file%:*}
    LC_ALL=C grep -qaP "$numbers" "$path" || fail "$path is not version $3"
    texts=$(strings -el "$path" | grep -A 1 '^ProductVersion$')
    expect "the version of $path" "ProductVersion $3" "$(xargs <<<"$texts")"
    resources=$("$objdump" -p "$path" | grep -A 2 '   Entry: ID: 0x000018')
    [[ $resources == *"     Entry: ID: 0x00000${file#*:},"* ]] || fail "$path has no manifest"
done
