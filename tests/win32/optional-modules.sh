#!/usr/bin/env bash
# The real module with real optional modules, each case in a process of its own, and what the hosts print:
#   optional-modules.sh BUILD-FOLDER [RUNNER]
set -euo pipefail
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
tests=$(realpath "$1")/tests
module=$(realpath "$1")/bin/MaterialLibrary.dll
runner=("${@:2}")
work=$(mktemp -d "${TMPDIR:-/tmp}/optional-modules.XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work"/{empty,host,module}
cp "$tests"/fakes/*.dll "$tests"/{material_host,message_host}.exe "$work/host"
cp "$tests"/fakes/*.dll "$module" "$work/module"
printf '{MAT_FILE}\n{VERSION=1.0}\n{DIELECTRIC NAME}' >"$work/empty/bad.mat"

as_windows_says() { if command -v cygpath >/dev/null; then cygpath -w "$1"; else echo "Z:${1//\//\\}"; fi; }
# in_folder FOLDER PROGRAM [ARGUMENT...]
in_folder() { (cd "$1" && "${runner[@]}" "${@:2}" | tr -d '\r'); }

{
    module=$(as_windows_says "$module")
    echo "# without optional modules"
    in_folder "$work/empty" "$tests/material_host.exe" "$module" ";"
    echo "# from a folder that the host added"
    in_folder "$work/empty" "$tests/material_host.exe" --folder "$(as_windows_says "$tests/fakes")" "$module" ";"
    echo "# from the host's folder"
    in_folder "$work/empty" "$work/host/material_host.exe" "$module" ";"
    echo "# from the module's folder"
    in_folder "$work/empty" "$tests/material_host.exe" "$(as_windows_says "$work/module/MaterialLibrary.dll")" ";"
    echo "# not from the current folder, and not from PATH"
    WINEPATH=$(as_windows_says "$tests/fakes") PATH=$PATH:$tests/fakes \
        in_folder "$tests/fakes" "$tests/material_host.exe" "$module" ";"
    echo "# every slot of a message handler of another compiler, after it was switched off"
    in_folder "$work/empty" "$work/host/message_host.exe"
    echo "# the host's texts replace the reader's messages only"
    in_folder "$work/empty" "$tests/material_host.exe" "$module" bad.mat
    in_folder "$work/empty" "$tests/material_host_with_texts.exe" "$module" bad.mat
} >"$work/printed"
diff -u --label expected --label printed "$here/optional-modules.txt" "$work/printed"
