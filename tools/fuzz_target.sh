#!/bin/bash
# tools/fuzz_target.sh BUILD_FOLDER TARGET SECONDS: lets libFuzzer work on one target and tells how much it saw.
set -euo pipefail

root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
build_folder=$1
target=$2
seconds=$3
folder=$build_folder/fuzz/$target
log=$build_folder/logs/fuzz_$target.log
mkdir -p "$folder/learned" "$build_folder/logs"

seeds=()
if [[ $target == macro_lexer || $target == macro_compiler || $target == macro_interpreter || $target == script_variables ]]; then
    seeds=("$root/tests/unit/local_macro/conformance" "$root/src/script/templates")
fi
[[ -d $root/tests/fuzz/regressions/$target ]] && seeds+=("$root/tests/fuzz/regressions/$target")

printf '%s for %s s …' "$target" "$seconds"
code=0
"$build_folder/linux-fuzz/bin/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=3000 -max_len=20000 \
    -dict="$root/tests/fuzz/macro.dict" -print_final_stats=1 -artifact_prefix="$folder/" \
    "$folder/learned" "${seeds[@]}" >"$log" 2>&1 </dev/null || code=$?
runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
covered=$(grep -o ' cov: [0-9]*' "$log" | tail -n 1)
printf ' %s runs,%s\n' "${runs:-0}" "${covered:- cov: 0}"
if ((code)); then
    grep -m 1 -E "This doesn't hold|ERROR: |SUMMARY: " "$log" || true
    echo "$target was broken; the input is in $folder, the log is $log" >&2
fi
exit "$code"
