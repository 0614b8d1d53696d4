#!/bin/bash
# Runs a Windows program under Wine for ctest. What it prints goes through a file, because Wine's background services
# inherit the output and would keep ctest's pipe open long after the program has ended.
: "${WINEPREFIX:?set it to a folder of the build}"
export WINEPREFIX LC_ALL=C WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe=d"
output=$(mktemp)
/usr/lib/wine/wine64 "$@" >"$output" 2>&1 </dev/null
code=$?
cat "$output"
rm -f "$output"
exit $code
