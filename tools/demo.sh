#!/bin/bash
# Converts real CAD files through the add-in, in a fresh vault, and shows what the vault then holds. Called by ./run demo.
set -euo pipefail

root=$(dirname "$(dirname "$(readlink -f "$0")")")
tvtask=${TVTASK:-$root/tools/tvtask.sh}
demo=$root/build/demo

# The programs are Windows programs; Z: is the root of this machine's own files.
windows_path() {
    local path
    path=$(readlink -m "$1")
    echo "Z:${path//\//\\}"
}

vault=$(windows_path "$demo/vault")

task() {
    local command=$1
    shift
    "$tvtask" "$command" --vault "$vault" "$@"
}

define() {
    local name=$1
    shift
    "$tvtask" task new --vault "$vault" "$name" --kind convert
    "$tvtask" task set --vault "$vault" "$name" "$@" >/dev/null
}

say() {
    printf '\n== %s\n' "$1"
}

# Files of Debian's packages, which nobody here wrote.
find_sources() {
    local cad=/usr/share/opencascade/data
    cp "$cad/step/screw.step" "$cad/step/linkrods.step" "$cad/iges/hammer.iges" "$1"
    local packed
    packed=$(find /usr/share/doc -name as1-tu-203.stp.gz 2>/dev/null | sort | head -n 1)
    [[ -n $packed ]] || { echo "demo: as1-tu-203.stp.gz of the package gmsh-doc isn't there" >&2; exit 1; }
    gzip -dc "$packed" >"$1/as1-tu-203.stp"
}

chmod -R u+w "$demo" 2>/dev/null || true
rm -rf "$demo"
mkdir -p "$demo/sources/Parts"
find_sources "$demo/sources/Parts"

say "A vault with four real files and the samples of this repository"
task init --name Demo
task import "$(windows_path "$demo/sources/Parts")" "$(windows_path "$root/samples")"

say "Two convert tasks"
define "Export STL" FileFormat=STL 'OutputPath=<VaultPath>\STL\<Filename>_<Configuration>' \
    'OutputPath2=<VaultPath>\Archive\STL\<Filename>_<Configuration>_<Today>' ReplaceOutput=false RefToSource=true
define "Publish" FileFormat=STEP 'OutputPath=<VaultPath>\Published\<Filename>_<Extension>_<Configuration>' \
    ReplaceOutput=true RefToSource=true FileSheets=2
"$tvtask" task list --vault "$vault"

models=('\Parts' '\samples\bracket.tvnprt' '\samples\gearbox.tvnasm' '\samples\imported.tvnprt')

say "Every model as STL to two places, as STEP, and everything as PDF"
task launch "Export STL" "${models[@]}" >/dev/null
task launch "Publish" "${models[@]}" >/dev/null
task launch "Publish" --set FileFormat=PDF "${models[@]}" '\samples\bracket.tvndrw' >/dev/null
code=0
task run --all || code=$?

say "One file once more: a new version where that is asked for, a new file where replacing is"
task launch "Export STL" '\Parts\screw.step' >/dev/null
task launch "Publish" '\Parts\screw.step' >/dev/null
task run --all || code=$?
task history '\STL\screw_Default.stl'
task history '\Published\screw_step_Default.step'

say "How the tasks ended"
task status

cat <<WHERE

The vault's files stand in $demo/vault; open a PDF or an STL there with any viewer.
To look around:    ./run tvtask ls -r --vault '$vault'
One macro:         ./run tvtask macro "Export STL" '\Parts\screw.step' --vault '$vault'
WHERE
exit $code
