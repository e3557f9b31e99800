#!/usr/bin/env bash
# Uses the packages as a stranger does: unpacks them into an empty folder, builds the examples against them with
# three compilers and runs everything: consumer-test.sh DIST-FOLDER
set -euo pipefail
dist=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
root=$PWD
work=$(mktemp -d "${TMPDIR:-/tmp}/consumer.XXXXXX")
trap 'rm -rf "$work"' EXIT

unzip -q "$dist"/MaterialLibrary-*-windows-x64.zip -d "$work"
tar -C "$work" -xzf "$dist"/matlib-*-linux-x64.tar.gz
package=$(echo "$work"/MaterialLibrary-*)
documentation=$package/share/doc/MaterialLibrary
tool=$(echo "$work"/matlib-*)
wine() { (cd "$1" && "$root/cmake/wine-run.sh" "${@:2}" | tr -d '\r'); }
fail() { echo "consumer-test.sh: $*" >&2 && exit 1; }
expect() { [[ $3 == *"$2"* ]] || fail "$1: expected \"$2\", got \"$3\""; }

(cd "$dist" && sha256sum --check --quiet SHA256SUMS)
for folder in "$package" "$tool"; do
    [[ $(ls "$folder") =~ ^(CONTENTS.sha256|bin|include|lib|share|[[:space:]])+$ ]] || fail "what stands at the top"
    tests/house/check-documents.sh "$folder"/share/doc/*
    (cd "$folder" && sha256sum --check --quiet CONTENTS.sha256)
    [[ $(find "$folder" -type f | wc -l) == $(($(wc -l <"$folder/CONTENTS.sha256") + 1)) ]] || fail "files not listed"
done
! grep -rlaF -e "$root" -e "${HOME:-/root}/" "$package" "$tool" || fail "paths of the build inside"

# build_example EXAMPLE NAME CMAKE-ARGUMENT...
build_example()
{
    local build=$work/$2
    cmake -S "$documentation/examples/$1" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_SYSTEM_NAME=Windows \
        -DCMAKE_SYSTEM_PROCESSOR=x86_64 -DCMAKE_PREFIX_PATH="$package" "${@:3}" >"$build.log" 2>&1 &&
        cmake --build "$build" >>"$build.log" 2>&1 || { cat "$build.log" && fail "$2 cannot build $1"; }
}

# build_hosts NAME CMAKE-ARGUMENT...
build_hosts()
{
    local build=$work/$1
    build_example host "$@"
    cp "$documentation"/examples/materials/DefaultMaterialD.mat "$build"
    expect "$1: first_value" "Er = 4.1680" "$(wine "$build" ./first_value.exe)"
    expect "$1: smallest_host" "Getinaks at 2.5 GHz: Er 5.1727" "$(wine "$build" ./smallest_host.exe)"
    echo "$1: fine"
}
build_hosts mingw -DCMAKE_CXX_COMPILER=x86_64-w64-mingw32-g++-posix
for example in messages translation; do
    build_example $example $example -DCMAKE_CXX_COMPILER=x86_64-w64-mingw32-g++-posix \
        -DCMAKE_RC_COMPILER=x86_64-w64-mingw32-windres
done
cp "$work/messages/MsgHandler.dll" "$work/mingw"
export MESSAGE_LOG=log.txt
(cd "$work/mingw" && wine . ./smallest_host.exe nowhere.mat >/dev/null && grep -q "warning: No dielectric" log.txt) ||
    fail "the message handler wrote no log"
rm "$work/mingw/MsgHandler.dll"

# The example for C: with either package by CMake, on Linux by pkg-config too.
expected=$(cat "$documentation/examples/c/laminate.txt")
build_example c c -DCMAKE_C_COMPILER=x86_64-w64-mingw32-gcc-posix
[[ $(wine "$documentation/examples/materials" "$work/c/laminate.exe") == "$expected" ]] || fail "laminate.exe says otherwise"
examples=$tool/share/doc/matlib/examples
cmake -S "$examples/c" -B "$work/native" -G Ninja -DCMAKE_PREFIX_PATH="$tool" >/dev/null
cmake --build "$work/native" >/dev/null
flags=$(PKG_CONFIG_LIBDIR=$tool/lib/pkgconfig pkg-config --cflags --libs materials)
# shellcheck disable=SC2086
cc -std=c99 "$examples/c/laminate.c" $flags "-Wl,-rpath,$tool/lib" -o "$work/native/laminate_too"
for program in laminate laminate_too; do
    [[ $("$work/native/$program" "$examples/materials/DefaultMaterialD.mat") == "$expected" ]] || fail "$program says otherwise"
done
echo "c: fine"

# The wheel, as pip installs it.
/usr/bin/python3 -m pip install --quiet --root-user-action ignore --no-index --no-deps --no-compile --target "$work/python" "$dist"/materiallibrary-*.whl
(cd "$documentation/examples/materials" &&
    PYTHONPATH=$work/python /usr/bin/python3 -B ../python/laminate.py | diff ../python/laminate.txt -) || fail "the wheel"
! grep -rlaF -e "$root" -e "${HOME:-/root}/" "$work/python/materiallibrary" || fail "paths of the build in the wheel"
echo "python: fine"

headers=$(x86_64-w64-mingw32-g++-posix -print-file-name=include/c++)
mingw=/usr/x86_64-w64-mingw32
build_hosts clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_CXX_COMPILER_TARGET=x86_64-w64-windows-gnu \
    "-DCMAKE_CXX_FLAGS=-nostdinc++ -nostdlibinc -isystem $headers -isystem $headers/x86_64-w64-mingw32 -isystem $mingw/include" \
    "-DCMAKE_CXX_STANDARD_LIBRARIES=-luser32 -lgdi32 -ladvapi32 -lpthread" \
    "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld -L$(dirname "$headers")/.. -L$mingw/lib"

# The other object format: its compiler, its linker, its import libraries.
mkdir "$work/foreign"
clang++ --target=x86_64-pc-windows-msvc -std=c++20 -O1 -ffreestanding -fno-exceptions -fno-rtti -Wall -Wextra -Werror \
    -I"$package/include" -c tests/package/ForeignHost.cpp -o "$work/foreign/host.obj"
lld-link /nologo /nodefaultlib /entry:Start /subsystem:console "/out:$work/foreign/host.exe" "$work/foreign/host.obj" \
    "$package/lib/MaterialLibrary.lib" "$package/lib/materials.lib"
cp "$package"/bin/*.dll "$work/foreign"
wine "$work/foreign" ./host.exe || fail "the foreign host ended with $?"
echo "foreign: fine"

flags=$(PKG_CONFIG_LIBDIR=$package/lib/pkgconfig pkg-config --cflags --libs MaterialLibrary)
# shellcheck disable=SC2086
x86_64-w64-mingw32-g++-posix -std=c++17 -static "$documentation/examples/host/FirstValue.cpp" $flags -o "$work/mingw/x.exe"
expect "pkg-config" "Er = 4.1680" "$(wine "$work/mingw" ./x.exe)"

materials=$tool/share/doc/matlib/examples/materials
native=$("$tool/bin/matlib" --lib "$materials/DefaultMaterialD.mat;$materials/DefaultMaterialM.mat" list)
expect "matlib" "62 materials" "$native"
windows=$(wine "$documentation/examples/materials" "$package/bin/matlib.exe" \
    --lib "DefaultMaterialD.mat;DefaultMaterialM.mat" list)
[[ $windows == "$native" ]] || fail "matlib.exe prints other materials than matlib"
[[ $(env -u MATLIB_PATH "$tool/bin/matlib" list) == "$native" ]] || fail "matlib does not find its examples"
[[ $(env -u MATLIB_PATH "$root/cmake/wine-run.sh" "$package/bin/matlib.exe" list | tr -d '\r') == "$native" ]] ||
    fail "matlib.exe does not find its examples"
echo "matlib: fine"
