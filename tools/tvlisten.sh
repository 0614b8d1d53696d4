#!/bin/bash
# Runs the built listener under Wine. ./run tvlisten builds it first.
root=$(dirname "$(dirname "$(readlink -f "$0")")")
source "$root/cmake/wine_env.sh"

# As in tvtask.sh: Wine's background services must not hold the caller's pipe.
"$TV_WINE" cmd /c exit >/dev/null 2>&1 </dev/null

exec "$TV_WINE" "$root/build/windows/bin/tvlisten.exe" "$@"
