#!/usr/bin/env bash
# Builds everything and runs every test: on Linux, optimised, with sanitizers, for Windows under Wine, and of the
# packages.
#   test.sh             the tests; the last lines are the summaries
#   test.sh --coverage  line and branch coverage of the portable code
#   test.sh --lint      formatting, clang's warnings everywhere, clang-tidy for the code that is delivered
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

run_tests()
{
    local summaries=() failed=0 preset log
    scripts/packages.sh test
    rm -f build/wine-prefix*.silent.log
    trap 'cmake/wine-run.sh --end' EXIT
    for preset in native release sanitize windows; do
        scripts/build.sh "$preset"
    done
    scripts/build.sh thread test_c_threads matlib_threads_test
    for preset in native release sanitize thread windows; do
        log=build/$preset-test.log
        ctest --preset "$preset" --parallel "$(nproc)" </dev/null 2>&1 | tee "$log" || failed=1
        summaries+=("$preset: $(grep -E 'tests passed|Total Test time' "$log" | paste -s -d ' ')")
    done
    for log in build/wine-prefix*.silent.log; do
        [[ ! -e $log ]] || summaries+=("programs that ended under Wine without a word: $log")
    done
    log=build/package-test.log
    rm -rf build/dist
    { ./package.sh --output build/dist && tests/package/consumer-test.sh build/dist; } 2>&1 | tee "$log" || failed=1
    summaries+=("packages: $(tail -n 1 "$log")")
    echo
    printf '%s\n' "${summaries[@]}"
    return "$failed"
}

run_coverage()
{
    scripts/packages.sh coverage
    scripts/build.sh coverage
    find build/coverage -name '*.gcda' -delete
    ctest --preset coverage --parallel "$(nproc)" </dev/null
    gcovr --root . --object-directory build/coverage --filter include/ --filter MaterialLibrary/ --filter shared/ \
        --filter grid/ --filter tools/ --exclude-throw-branches --exclude-unreachable-branches \
        --print-summary build/coverage
}

run_lint()
{
    scripts/packages.sh lint
    git ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp' | xargs -0 clang-format --dry-run -Werror
    scripts/build.sh clang
    run-clang-tidy -quiet -p build/clang -j "$(nproc)" "^$PWD/(MaterialLibrary|shared|grid|tools)/" </dev/null
}

case ${1:-} in
"") run_tests ;;
--coverage) run_coverage ;;
--lint) run_lint ;;
*)
    sed -n '2,6s/^# \?//p' "$0" >&2
    exit 2
    ;;
esac
