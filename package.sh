#!/usr/bin/env bash
# Makes the packages in dist/: the library for Windows hosts, the tool for Linux and the wheel for Python on Linux.
#   package.sh [--output FOLDER]   builds and packs, with SHA256SUMS beside the archives; the same commit gives the same
#                                  archives, byte for byte
#   package.sh --verify            does so once more from a fresh clone of the commit and compares
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
umask 022

output=dist
verify=false
case ${1:-} in
"") ;;
--output) output=$2 ;;
--verify) verify=true ;;
*)
    sed -n '2,5s/^# \?//p' "$0" >&2
    exit 2
    ;;
esac

version=$(sed -n 's/^#define MATERIALLIBRARY_VERSION "\(.*\)"/\1/p' include/MaterialLibrary/Version.h)
windows=MaterialLibrary-$version-windows-x64
linux=matlib-$version-linux-x64
glibc=2.36 # of Debian 12; check_oldest_glibc looks
wheel=materiallibrary-$version-py3-none-manylinux_${glibc/./_}_x86_64.whl
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C

# list_contents FOLDER: what is inside, each file with its hash
list_contents()
{
    (cd "$1" && find . -type f ! -name CONTENTS.sha256 -printf '%P\0' | sort -z | xargs -0 sha256sum >CONTENTS.sha256)
}

# settle FOLDER: modes and times that do not depend on who builds when
settle()
{
    find "$1" -type d -exec chmod 755 {} +
    find "$1" -type f -exec chmod 644 {} +
    find "$1" -type f \( -name '*.exe' -o -name '*.dll' -o -path '*/bin/matlib' \) -exec chmod 755 {} +
    find "$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
}

# stage PRESET FOLDER: installs a build there
stage()
{
    rm -rf "$2"
    cmake --install "build/$1" --prefix "$2" --strip >"build/$1-install.log"
}

fail() { echo "package.sh: $1" >&2 && exit 1; }

# The build identifier of a Windows module, which its debug file has too.
build_identifier()
{
    x86_64-w64-mingw32-objdump --private-headers "$1" | sed -n 's/.*RSDS signature \([0-9a-f]*\).*/\1/p'
}

# record_build_identifiers FOLDER
record_build_identifiers()
{
    local module identifier
    for module in MaterialLibrary.dll materials.dll; do
        identifier=$(build_identifier "$1/bin/$module")
        [[ -n $identifier && $identifier == $(build_identifier "$1/lib/debug/$module.debug") ]] ||
            fail "the build identifier \"$identifier\" of $module is not that of its debug file"
        echo "$identifier $module"
    done >"$1/share/doc/MaterialLibrary/BUILD-ID"
}

# check_oldest_glibc FOLDER: the document names the version that the symbols of tool and library want
check_oldest_glibc()
{
    local oldest
    oldest=$(objdump --dynamic-syms "$1/bin/matlib" "$1/lib/libmaterials.so" | grep -o 'GLIBC_[0-9.]*' | sort --unique --version-sort | tail -n 1)
    [[ $oldest == "GLIBC_$glibc" ]] && grep -q "needs glibc $glibc " "$1/share/doc/matlib/README.md" ||
        fail "matlib needs $oldest, its README says otherwise"
}

# make_wheel FOLDER STAGED-LIBRARY: builds the wheel there. Only Debian's Python knows Debian's packages.
make_wheel()
{
    local file source=build/wheel
    rm -rf "$source"
    while IFS= read -r file; do
        install -D -m 644 "$file" "$source/${file#python/}"
    done < <(git ls-files --cached --others --exclude-standard python)
    install -D -m 644 include/MaterialLibrary/Version.h -t "$source/include/MaterialLibrary"
    install -m 644 LICENSE THIRD-PARTY.md "$source"
    install -m 644 "$2" "$source/materiallibrary/libmaterials.so"
    (cd "$source" && /usr/bin/python3 -m build --wheel --no-isolation --outdir . \
        "-C--build-option=--plat-name=manylinux_${glibc/./_}_x86_64" . >build.log 2>&1) || {
        cat "$source/build.log" >&2
        fail "no wheel"
    }
    cp "$source/$wheel" "$1"
}

pack()
{
    local staged=$PWD/build/package
    stage windows "$staged/$windows"
    stage native "$staged/$linux"
    record_build_identifiers "$staged/$windows"
    check_oldest_glibc "$staged/$linux"
    local program
    for program in "$staged/$windows"/bin/matlib.exe "$staged/$windows"/bin/matlib-modules/*.dll; do
        # the tool's debug information stays at home, and so does the link to it
        x86_64-w64-mingw32-objcopy --preserve-dates --remove-section .gnu_debuglink "$program"
    done
    for folder in "$windows" "$linux"; do
        list_contents "$staged/$folder"
        settle "$staged/$folder"
    done
    mkdir -p "$output"
    rm -f "$output/$windows.zip" "$output/$linux.tar.gz"
    local archive
    archive=$(realpath "$output")/$windows.zip
    (cd "$staged" && find "$windows" -type f | sort | zip -q -X -9 "$archive" -@)
    tar --directory "$staged" --sort=name --owner=0 --group=0 --numeric-owner --format=ustar --create "$linux" |
        gzip --no-name -9 >"$output/$linux.tar.gz"
    make_wheel "$output" "$staged/$linux/lib/libmaterials.so"
}

if $verify; then
    [[ -e dist/SHA256SUMS ]] || { echo "package.sh: dist has no packages to compare with; run package.sh first" >&2 && exit 1; }
    fresh=$(mktemp -d "${TMPDIR:-/tmp}/package-verify.XXXXXX")
    trap 'rm -rf "$fresh"' EXIT
    git clone --quiet . "$fresh/tree"
    "$fresh/tree/package.sh"
    for archive in "$windows.zip" "$linux.tar.gz" "$wheel" SHA256SUMS; do
        cmp "dist/$archive" "$fresh/tree/dist/$archive"
    done
    echo "A fresh clone gives the same archives."
    exit
fi

scripts/packages.sh package
[[ -z $(git status --porcelain) ]] || echo "package.sh: the working tree differs from its last commit" >&2
mkdir -p build
for preset in native windows; do # again, because what is built carries the day of the last commit
    cmake --preset "$preset" >"build/$preset-configure.log" 2>&1 || {
        cat "build/$preset-configure.log" >&2
        exit 1
    }
done
scripts/build.sh native matlib materials
scripts/build.sh windows MaterialLibrary materials matlib matlib_messages import_libraries
pack
(cd "$output" && sha256sum "$windows.zip" "$linux.tar.gz" "$wheel" | tee SHA256SUMS)
