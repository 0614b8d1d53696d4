#!/bin/bash
# Makes a Wine prefix fit for the project's Windows programs, and registers them in it.
#
#   tools/wine_prefix.sh [--check] PREFIX [FOLDER OF THE PROGRAMS]
#
# Costs nothing when there is nothing to do; --check only tells by its exit code whether that is so.
set -euo pipefail

check=false
[[ ${1:-} == --check ]] && { check=true; shift; }
export WINEPREFIX=$(readlink -m "$1")
programs=${2:-}
source "$(dirname "$(readlink -f "$0")")/../cmake/wine_env.sh"

component=$programs/TVTaskAddIn.dll
application=$programs/TORVANE.EXE
registered=$WINEPREFIX/.registered

identities() {
    stat -c '%n %s %.Y' "$component" "$application" 2>/dev/null || true
}

is_made() {
    [[ -e $WINEPREFIX/.ready ]]
}

is_registered() {
    [[ -z $programs || "$(identities)" == "$(cat "$registered" 2>/dev/null)" ]]
}

wine() {
    "$TV_WINE" "$@" </dev/null
}

make_prefix() {
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX/home"
    # Folders such as Documents become links into HOME; nothing of a test may reach the person's own.
    HOME=$WINEPREFIX/home wine wineboot -i
    # No program of ours needs a display but for pictures, and those tests set it themselves.
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
    # The server writes the registry to disk when it ends; waiting for its services to go idle would take seconds.
    "$TV_WINESERVER" -k
    timeout 60 "$TV_WINESERVER" -w
    touch "$WINEPREFIX/.ready"
}

register() {
    if [[ -e $component ]]; then
        wine regsvr32 /s "$(windows_path "$component")" || { echo "regsvr32 failed on $component"; return 1; }
    fi
    if [[ -e $application ]]; then
        wine "$application" /regserver || { echo "$application /regserver failed"; return 1; }
    fi
    identities >"$registered"
}

windows_path() {
    local path
    path=$(readlink -f "$1")
    echo "Z:${path//\//\\}"
}

if $check; then
    is_made && is_registered
    exit
fi
is_made || make_prefix
is_registered || register
