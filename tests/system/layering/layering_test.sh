#!/bin/bash
# Tests of who includes whom. Called with the name of one test; TV_INCLUDES names the file that tells each target's
# include folders as "source folder|target|folder:folder:…".
set -euo pipefail

# The folders of the add-in from the innermost outwards, each with the ones that it may include.
declare -A may_include=(
    [com]=""
    [interfaces]="com"
    [platform]="com"
    [support]="com interfaces platform"
    [errors]="com interfaces platform support"
    [script]="com interfaces platform support"
    [vault]="com interfaces platform support script"
    [cad]="com interfaces platform support script vault"
    [ui]="com interfaces platform support"
    [pages]="com interfaces platform support script vault cad errors ui"
    [print]="com interfaces platform support script vault cad errors ui"
    [addin]="com interfaces platform support script vault cad errors ui pages print"
    [module]="com interfaces platform support script vault cad errors ui pages print addin"
)

failures=0

complain() {
    echo "$1"
    failures=$((failures + 1))
}

# A compiler finds "vault/x.h" when one of its include folders has it. Two folders of one name (the add-in's and the
# local edition's vault) are told apart by what they hold.
reaches() {
    local include_folders=$1 folder=$2 include
    local -a list
    IFS=: read -ra list <<<"$include_folders"
    for include in "${list[@]}"; do
        [[ $include/${folder##*/} -ef $folder ]] && return 0
    done
    return 1
}

# for_targets_below PREFIX FUNCTION: calls it with source folder, target and include folders of each.
for_targets_below() {
    local folder target includes seen=0
    while IFS='|' read -r folder target includes; do
        [[ $folder == "$1"/* ]] || continue
        seen=1
        "$2" "$folder" "$target" "$includes"
    done <"$TV_INCLUDES"
    ((seen)) || complain "no target stands below $1"
}

check_add_in_folder() {
    local own=${1#src/} other
    own=${own%%/*}
    [[ -v may_include[$own] ]] || { complain "$1 has no place in the layering"; return; }
    for other in "${!may_include[@]}"; do
        [[ $other == "$own" || ! -d src/$other ]] && continue
        reaches "$3" "src/$other" || continue
        reached=$((reached + 1))
        [[ " ${may_include[$own]} " == *" $other "* ]] ||
            complain "$2 (src/$own) reaches src/$other, which it must not include"
    done
}

check_local_target() {
    local other
    for other in "${!may_include[@]}"; do
        [[ $other == com || $other == interfaces ]] && continue
        if reaches "$3" "src/$other"; then
            complain "$2 ($1) reaches src/$other"
        fi
    done
}

check_no_local_folder() {
    local other
    for other in $(find local -type d); do
        if reaches "$3" "$other"; then
            complain "$2 ($1) reaches $other"
        fi
    done
}

sources() {
    find "$@" \( -name '*.h' -o -name '*.cpp' -o -name '*.rc' -o -name '*.idl' \) -print0
}

# complain_of_lines MESSAGE PATTERN FILES (0-terminated on the input)
complain_of_lines() {
    local found
    found=$(xargs -0 -r grep -nE "$2" /dev/null || true)
    [[ -z $found ]] || complain "$1:
$found"
}

EachFolderOfTheAddInReachesOnlyWhatItMay() {
    local reached=0
    for_targets_below src check_add_in_folder
    # Seeing nothing at all would pass every check above.
    ((reached >= 10)) || complain "only $reached allowed includes were found"
}

TheLocalEditionReachesComponentBaseAndInterfacesOnly() {
    for_targets_below local check_local_target
}

TheAddInReachesNothingOfTheLocalEdition() {
    for_targets_below src check_no_local_folder
}

NoIncludeClimbsToAParentFolder() {
    complain_of_lines "an include climbs to a parent folder" '^\s*#\s*include\s*["<]\.\./' < <(sources src local tests)
}

OnlyTheOutermostFoldersKnowTheSystemsHeader() {
    complain_of_lines "the system's header is known outside of com, platform/win32, ui/win32 and module" \
        '^\s*#\s*include\s*<(windows|winsock2|ole2|objbase)\.h>' \
        < <(sources src | grep -zvE '^src/(com|platform/win32|ui/win32|module)/')
}

InterfacesUseTypesOfFixedWidthOnly() {
    complain_of_lines "a type whose width differs between systems stands in an interface" \
        '^[^/]*\b(long|wchar_t|DWORD)\b' < <(sources src/interfaces; find src/platform -maxdepth 1 -name '*.h' -print0)
}

"$1"
((failures == 0))
