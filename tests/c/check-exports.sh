#!/usr/bin/env bash
# Checks that a shared library offers the functions of the header and nothing else, and that what it needs itself is
# there on every system: check-exports.sh HEADER LIBRARY
set -euo pipefail
declared=$(sed -n 's/^ML_API .*\(ml_[a-z_]*\)(.*/\1/p' "$1" | sort)
case $2 in
*.dll)
    listing=$(x86_64-w64-mingw32-objdump --private-headers "$2")
    exported=$(awk '/^\[Ordinal\/Name Pointer\]/ { names = 1; next } names && NF == 0 { exit } names { print $NF }' <<<"$listing")
    needed=$(sed -n 's/.*DLL Name: //p' <<<"$listing" | tr '[:upper:]' '[:lower:]')
    allowed="kernel32.dll msvcrt.dll user32.dll"
    ;;
*)
    exported=$(nm --dynamic --defined-only "$2" | awk '{ print $NF }')
    needed=$(objdump --private-headers "$2" | awk '$1 == "NEEDED" { print $2 }')
    allowed="libc.so.6 libm.so.6 ld-linux-x86-64.so.2"
    objdump --private-headers "$2" | grep -q 'SONAME *libmaterials\.so\.[0-9]*$' || { echo "no soname" && exit 1; }
    ;;
esac
[[ -n $declared ]] && diff <(echo "$declared") <(sort <<<"$exported")
for library in $needed; do
    [[ " $allowed " == *" $library "* ]] || { echo "needs $library" && exit 1; }
done
