#!/bin/bash
# Runs the built task host under Wine, in the caller's folder, with its exit code. ./run tvtask builds it first.
root=$(dirname "$(dirname "$(readlink -f "$0")")")
export TVKERNEL=${TVKERNEL:-$root/build/linux-release/bin/tvkernel}
source "$root/cmake/wine_env.sh"

# Wine's background services keep the output that they were started with. Started here, they don't hold the caller's
# pipe open after the task host has ended.
"$TV_WINE" cmd /c exit >/dev/null 2>&1 </dev/null

# So does an application that stays: what the command that starts one prints goes through files.
if [[ " $* " == *" app start "* ]]; then
    printed=$(mktemp -d)
    code=0
    "$TV_WINE" "$root/build/windows/bin/tvtask.exe" "$@" >"$printed/out" 2>"$printed/err" </dev/null || code=$?
    cat "$printed/out"
    cat "$printed/err" >&2
    rm -rf "$printed"
    exit "$code"
fi

exec "$TV_WINE" "$root/build/windows/bin/tvtask.exe" "$@"
