#!/usr/bin/env bash
# Installs the Debian packages that are missing for a purpose: packages.sh run|display|test|package|docs|bench|fuzz|coverage|lint|mutate
# Needs root or sudo only when something is missing.
set -euo pipefail

build="g++ cmake ninja-build git libcli11-dev nlohmann-json3-dev libfast-float-dev libfccp-dev googletest libgtest-dev libgmock-dev"
run="$build g++-mingw-w64-x86-64-posix wine64 fonts-wine"
wheel="python3 python3-build python3-setuptools python3-wheel"
display="xvfb openbox xdotool imagemagick"
case ${1:-} in
run) wanted=$run ;;
display) wanted=$display ;;
test)
    wanted="$run $display $wheel clang lld man-db bsdextrautils doxygen llvm zip unzip pkg-config
        python3-numpy python3-matplotlib python3-pytest mypy python3-pip vim"
    ;;
package) wanted="$build $wheel g++-mingw-w64-x86-64-posix llvm zip" ;;
docs) wanted="doxygen" ;;
bench)
    wanted="$build libbenchmark-dev rapidjson-dev libsimdjson-dev libpugixml-dev libeigen3-dev
        liblapacke-dev pkg-config libcairo2-dev qtbase5-dev libqwt-qt5-dev libqcustomplot-dev python3-numpy"
    ;;
fuzz) wanted="$build clang libclang-rt-14-dev" ;;
coverage) wanted="$build gcovr" ;;
lint) wanted="$build clang clang-format clang-tidy" ;;
mutate) wanted="$build lld python3" ;;
*)
    echo "usage: packages.sh run|display|test|package|docs|bench|fuzz|coverage|lint|mutate" >&2
    exit 2
    ;;
esac

missing=()
for package in $wanted; do
    state=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    [[ $state == installed ]] || missing+=("$package")
done
if ((${#missing[@]} == 0)); then
    exit 0
fi

administrator=()
if ((EUID != 0)); then
    if ! sudo --non-interactive true 2>/dev/null; then
        echo "These packages are missing: ${missing[*]}" >&2
        echo "Install them and call again: sudo apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    administrator=(sudo --non-interactive)
fi
echo "Installing ${missing[*]}"
install=(env DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends)
if ! "${administrator[@]}" "${install[@]}" "${missing[@]}" </dev/null >/dev/null; then
    "${administrator[@]}" apt-get update </dev/null >/dev/null
    "${administrator[@]}" "${install[@]}" "${missing[@]}" </dev/null >/dev/null
fi
