#!/bin/bash
# Runs a Windows program under Wine for ctest. What it prints goes through a file, because Wine's background services
# inherit the output and would keep ctest's pipe open long after the program has ended.
source "$(dirname "$(readlink -f "$0")")/wine_env.sh"
output=$(mktemp)
"$TV_WINE" "$@" >"$output" 2>&1 </dev/null
code=$?
cat "$output"
rm -f "$output"
exit $code
