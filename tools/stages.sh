# Sourced by ./run: the stages of the tests, and counting what they did.
# Each GoogleTest program leaves an XML file with its counts beside ctest's own; tools/count_tests.awk adds them up.

stages=(linux windows system)
results_folder=$build_folder/test_results

passed=0 failed=0 skipped=0

is_stage() {
    [[ " ${stages[*]} " == *" $1 "* ]]
}

stage_linux() {
    build linux-debug all || return
    export UBSAN_OPTIONS=print_stacktrace=1
    run_ctest linux-debug '^unit$' "$1"
}

stage_windows() {
    build windows all || return
    prepare_wine "$tests_wine_prefix" || return
    run_ctest windows '^(unit|windows)$' "$1"
}

stage_system() {
    build linux-release tvkernel || return
    build windows all || return
    prepare_wine "$tests_wine_prefix" || return
    TVTASK=$root/tools/tvtask.sh run_ctest windows '^system$' "$1"
}

# run_ctest PRESET LABELS RESULTS: ctest's own code is of no use here, what failed is counted from the results.
run_ctest() {
    local results=$3 gtest=$3/
    [[ $1 == windows ]] && gtest=Z:${gtest//\//\\}
    WINEPREFIX=$tests_wine_prefix GTEST_OUTPUT=xml:$gtest GTEST_COLOR=no \
        ctest --test-dir "$build_folder/$1" -L "$2" -j "$(nproc)" --output-on-failure --no-tests=ignore \
        --output-junit "$results/ctest.junit" 2>&1 </dev/null |
        awk -f "$root/tools/brief_ctest.awk" || true
}

# A stage that could not be built or left no results counts as one failure.
count_stage() {
    local results=$1 stage_passed=0 stage_failed=1 stage_skipped=0
    if [[ -s $results/ctest.junit ]]; then
        read -r stage_passed stage_failed stage_skipped < <(
            awk -f "$root/tools/count_tests.awk" "$results/ctest.junit" $(find "$results" -name '*.xml'))
    fi
    passed=$((passed + stage_passed)) failed=$((failed + stage_failed)) skipped=$((skipped + stage_skipped))
    say "$stage: $stage_passed passed, $stage_failed failed, $stage_skipped skipped in $(seconds_since "$2") s"
}

test_stages() {
    local stage start began
    began=$(milliseconds)
    trap 'stop_wine "$tests_wine_prefix"' EXIT
    for stage in "$@"; do
        start=$(milliseconds)
        rm -rf "${results_folder:?}/$stage"
        mkdir -p "$results_folder/$stage"
        say "== $stage"
        "stage_$stage" "$results_folder/$stage" || true
        count_stage "$results_folder/$stage" "$start"
    done
    say "All stages together: $(seconds_since "$began") s"
    say ""
    if ((skipped)); then
        say "$passed passed, $failed failed, $skipped skipped"
    else
        say "$passed passed, $failed failed"
    fi
    ((failed == 0))
}
