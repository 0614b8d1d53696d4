#!/bin/bash
# Tests of the component's file. Called with the name of one test and the path of the component.
set -euo pipefail

component=$2

# Libraries that every Windows has.
system_libraries="
    advapi32.dll bcrypt.dll comctl32.dll comdlg32.dll gdi32.dll kernel32.dll msi.dll msvcrt.dll ole32.dll oleaut32.dll
    rpcrt4.dll shell32.dll shlwapi.dll user32.dll uxtheme.dll version.dll winspool.drv ws2_32.dll xmllite.dll"

entry_points="DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer"

headers() {
    x86_64-w64-mingw32-objdump -p "$component"
}

imports() {
    headers | sed -nE 's/^\s*DLL Name: (.*)$/\L\1/p'
}

exports() {
    headers | sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/p' | sed -nE 's/^\s*\[ *[0-9]+\] (\+base\[ *[0-9]+\] +[0-9a-f]+ )?(\S+)\s*$/\2/p'
}

TheComponentImportsSystemLibrariesOnly() {
    local library unknown=0
    for library in $(imports); do
        [[ " ${system_libraries//$'\n'/ } " == *" $library "* ]] || { echo "imports $library"; unknown=1; }
    done
    imports | grep -qx kernel32.dll && ((unknown == 0))
}

TheComponentExportsTheFourServerEntryPoints() {
    local found
    found=$(exports | sort | xargs)
    [[ $found == "$entry_points" ]] || { echo "exports: $found"; return 1; }
}

"$1"
