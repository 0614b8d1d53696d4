#!/bin/bash
# Runs the built task host under Wine, in the caller's folder, with its exit code. ./run tvtask builds it first.
root=$(dirname "$(dirname "$(readlink -f "$0")")")
export TVKERNEL=${TVKERNEL:-$root/build/linux-release/bin/tvkernel}
source "$root/cmake/wine_env.sh"

# Wine's background services keep the output that they were started with. Started here, they don't hold the caller's
# pipe open after the task host has ended.
"$TV_WINE" cmd /c exit >/dev/null 2>&1 </dev/null

exec "$TV_WINE" "$root/build/windows/bin/tvtask.exe" "$@"
