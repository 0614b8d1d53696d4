#!/bin/bash
# Tests of the programs together. Called with the name of one test. TVTASK is the command that runs the task host.
set -euo pipefail

root=$(dirname "$(dirname "$(dirname "$(dirname "$(readlink -f "$0")")")")")
tvtask=${TVTASK:-$root/tools/tvtask.sh}
source "$root/cmake/wine_env.sh"

work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT

windows_path() {
    local path
    path=$(readlink -m "$1")
    echo "Z:${path//\//\\}"
}

vault=$(windows_path "$work/vault")

fail() {
    echo "FAILED: $*"
    exit 1
}

# tv COMMAND… runs one command that must be done.
tv() {
    "$tvtask" "$@" --vault "$vault" || fail "tvtask $* ended with $?"
}

# Ends with the command's own code.
tv_code() {
    local code=0
    "$tvtask" "$@" --vault "$vault" >"$work/out" 2>"$work/err" || code=$?
    echo "$code"
}

# json NAME reads all values of a field out of printed JSON, one a line.
json() {
    sed -nE "s/^ *\"$1\": (.*[^,]),?\$/\1/p" | sed 's/^"//; s/"$//; s/\\\\/\\/g'
}

is() {
    [[ $2 == "$3" ]] || fail "$1 is '$2' and not '$3'"
}

holds() {
    [[ $2 == *"$3"* ]] || fail "$1 doesn't hold '$3': $2"
}

version_of() {
    tv history "$1" --json | json version | head -n 1
}

id_of() {
    tv history "$1" --json | json id | head -n 1
}

# A vault with a screw in it and a task that writes STL beside it.
make_vault() {
    tv init >/dev/null
    tv import "$(windows_path /usr/share/opencascade/data/step/screw.step)" --to '\Parts' >/dev/null
    tv task new Export --kind convert >/dev/null
    tv task set Export FileFormat=STL 'OutputPath=<VaultPath>\Out\<Filename>' ReplaceOutput=false >/dev/null
}

# Launches the task and runs it; prints what the run printed.
convert() {
    local id
    id=$(tv launch Export "$@")
    tv run "$id"
}

# Processes of this Wine prefix, or started from it, whose command line holds the text.
processes_of() {
    local process
    for process in /proc/[0-9]*; do
        if grep -qsaF "$1" "$process/cmdline" && grep -qsazxF "WINEPREFIX=$WINEPREFIX" "$process/environ"; then
            tr '\0' ' ' <"$process/cmdline"
            echo
        fi
    done 2>/dev/null
}

nothing_runs() {
    is "the list of applications left" "$(processes_of TORVANE.EXE)" ""
    is "the list of kernels left" "$(processes_of tvkernel)" ""
}

nothing_runs_now() {
    [[ -z $(processes_of TORVANE.EXE) ]]
}

holds_line() {
    grep -qF "$2" "$1"
}

# wait_until COMMAND… gives it a minute to come true.
wait_until() {
    local end=$((SECONDS + 60))
    until "$@"; do
        ((SECONDS < end)) || fail "$* didn't come true"
        sleep 0.1
    done
}

nothing_is_left() {
    nothing_runs
    is "the list of files checked out" "$(tv ls -r --json | json checkedOutBy | grep -v '^null$' || true)" ""
}

TheApplicationOfARunIsSeenWhileItRuns() {
    make_vault
    local id seen=""
    id=$(tv launch Export '\Parts\screw.step')
    tv run "$id" >/dev/null &
    while [[ -z $seen && -n $(jobs -r) ]]; do
        seen=$(processes_of TORVANE.EXE)
    done
    wait
    holds "the list of applications" "$seen" 'TORVANE.EXE'
    nothing_is_left
}

ARealFileIsConvertedAndItsOutputsAreCheckedIn() {
    make_vault
    tv task set Export 'OutputPath2=<VaultPath>\Second\<Filename>' RefToSource=true >/dev/null
    local out
    out=$(convert '\Parts\screw.step')
    holds "the report" "$out" 'finished'
    is "the version" "$(version_of '\Out\screw.stl')" 1
    is "the version of the second output" "$(version_of '\Second\screw.stl')" 1
    tv export '\Out\screw.stl' "$(windows_path "$work/screw.stl")" >/dev/null
    # A binary STL file says in its 81st to 84th byte how many triangles of 50 bytes follow.
    local triangles
    triangles=$(od -An -tu4 -j80 -N4 "$work/screw.stl" | tr -d ' ')
    is "the size of the STL file" "$(stat -c %s "$work/screw.stl")" $((84 + 50 * triangles))
    ((triangles > 100)) || fail "the STL file has $triangles triangles"
    is "the status" "$(tv status 1 --json | json status | head -n 1)" 7
    nothing_is_left
}

ASecondRunMakesTheNextVersionOfTheSameFile() {
    make_vault
    convert '\Parts\screw.step' >/dev/null
    local id
    id=$(id_of '\Out\screw.stl')
    convert '\Parts\screw.step' >/dev/null
    is "the version" "$(version_of '\Out\screw.stl')" 2
    is "the file id" "$(id_of '\Out\screw.stl')" "$id"
    nothing_is_left
}

ASecondRunThatReplacesMakesANewFileAtVersionOne() {
    make_vault
    tv task set Export ReplaceOutput=true >/dev/null
    convert '\Parts\screw.step' >/dev/null
    local id
    id=$(id_of '\Out\screw.stl')
    convert '\Parts\screw.step' >/dev/null
    is "the version" "$(version_of '\Out\screw.stl')" 1
    [[ $(id_of '\Out\screw.stl') != "$id" ]] || fail "the file id is still $id"
    nothing_is_left
}

ADamagedFileAmongGoodOnesFailsTheRunAndIsNamedInTheLog() {
    make_vault
    head -c 20000 /usr/share/opencascade/data/step/linkrods.step >"$work/broken.step"
    tv import "$(windows_path "$work/broken.step")" "$(windows_path "$root/samples/flange.step")" --to '\Parts' >/dev/null
    local id
    id=$(tv launch Export '\Parts\screw.step' '\Parts\broken.step' '\Parts\flange.step')
    is "the exit code" "$(tv_code run "$id")" 1
    is "the status" "$(tv status "$id" --json | json status | head -n 1)" 9
    is "the message" "$(tv status "$id" --json | json message | head -n 1)" \
        'Task finished with errors. Please see the log-file for more details.'
    holds "the log" "$(tv log "$id")" 'broken.step'
    is "the version of a good file before it" "$(version_of '\Out\screw.stl')" 1
    is "the version of a good file behind it" "$(version_of '\Out\flange.stl')" 1
    holds "the vault" "$(tv ls '\Logs\Export')" '.log'
    nothing_is_left
}

ADrawingBecomesOnePdfOfAllItsSheets() {
    make_vault
    tv import "$(windows_path "$root/samples")" >/dev/null
    tv task set Export FileFormat=PDF FileSheets=2 >/dev/null
    convert '\samples\bracket.tvndrw' >/dev/null
    tv export '\Out\bracket.pdf' "$(windows_path "$work/bracket.pdf")" >/dev/null
    is "the number of pages" "$(pdfinfo "$work/bracket.pdf" | sed -n 's/^Pages: *//p')" 2
    nothing_is_left
}

TheMacroIsExpandedButForTheTokensThatAreItsOwn() {
    make_vault
    tv task set Export 'OutputPath=<Path>\<Filename>_<Extension>_<Configuration>' >/dev/null
    local macro
    macro=$(tv macro Export '\Parts\screw.step')
    holds "the macro" "$macro" 'Sub main'
    holds "the macro" "$macro" "$vault\\Parts\\screw.step"
    is "the tokens left" "$(grep -oE '<(Filename|Extension|Configuration|Path|VaultPath|Filepath|TaskInstanceGuid)>' \
        <<<"$macro" | sort -u | xargs)" '<Configuration> <Extension> <Filename>'
    is "the variables left" "$(grep -oE '\[[A-Za-z_]\w*\]' <<<"$macro" || true)" ""
    is "the instances made" "$(tv status --json)" '[]'
}

# A file with a macro whose lines are the arguments.
macro_file() {
    printf '%s\n' "${@:2}" >"$work/$1"
    windows_path "$work/$1"
}

AMacroIsCheckedAndLintedWithPlacesThatAnEditorFinds() {
    make_vault
    is "the check of the add-in's own macro" "$(tv macro Export '\Parts\screw.step' --check --lint)" "no problems"
    tv task new Own --kind script >/dev/null
    is "the check of the macro to begin with" "$(tv macro Own '\Parts\screw.step' --check --lint)" "no problems"
    tv task new Paper --kind print >/dev/null
    is "the check of the print macro" "$(tv macro Paper '\Parts\screw.step' --check --lint)" "no problems"
    tv task script Own "$(macro_file own.bas 'Sub main()' '  Dim Sheet' '  Sheet = "[Folder]"' '  Debug.Print Shet' \
        '  x = = 1' 'End Sub')" >/dev/null
    is "the code of a macro that doesn't compile" "$(tv_code macro Own '\Parts\screw.step' --check)" 1
    is "what the check prints" "$(cat "$work/out")" "Own (macro):5:7: error: Expected: expression
      x = = 1
          ^
1 error, 0 warnings"
    is "the code of a macro with warnings" "$(tv_code macro Own '\Parts\screw.step' --lint)" 1
    holds "what lint prints" "$(cat "$work/out")" 'Own (script):3:12: warning: [Folder] names no variable of the task'
    is "the instances made" "$(tv status --json)" '[]'
}

AScriptThatARunWouldNeverEndWithIsToldAndNotExpanded() {
    make_vault
    tv task new Own --kind script >/dev/null
    tv task script Own "$(macro_file own.bas 'Sub main()' '  x = y[0' 'End Sub')" >/dev/null
    local option
    for option in --check --lint --json; do
        is "the code with $option" "$(tv_code macro Own '\Parts\screw.step' "$option")" 1
        holds "what is printed" "$(cat "$work/out")" 'unclosed-placeholder'
    done
}

AMacroFileIsRunInAnApplicationOfItsOwn() {
    local path out
    path=$(macro_file run.bas 'Sub main()' '  Dim app As Object, errors As Long, warnings As Long' \
        '  Set app = Application.Torvane' \
        "  Set spec = app.GetOpenDocSpec(\"$(windows_path "$root/samples/bracket.tvnprt")\")" \
        '  Set model = app.OpenDoc7(spec)' '  Debug.Print "opened "; model.GetTitle' \
        "  model.Extension.SaveAs \"$(windows_path "$work/out.tvnprt")\", 0, 1, Nothing, errors, warnings" \
        'End Sub' 'Sub Other()' '  Debug.Print "the other one"' 'End Sub')
    out=$("$tvtask" macro-run "$path") || fail "macro-run ended with $?: $out"
    is "the first lines" "$(head -n 2 <<<"$out")" "opened bracket.tvnprt
Saved $(windows_path "$work/out.tvnprt")"
    holds "the last line" "$(tail -n 1 <<<"$out")" "main ended well after"
    [[ -s $work/out.tvnprt ]] || fail "the copy is not there"
    is "what another procedure prints" "$("$tvtask" macro-run "$path" --procedure other | head -n 1)" "the other one"
    nothing_runs
}

AMacroReadsTheEnvironmentOfItsApplication() {
    local path
    path=$(macro_file environment.bas 'Sub main()' '  Debug.Print Environ("TV_GREETING")' 'End Sub')
    is "what Environ tells" "$(TV_GREETING='good day' "$tvtask" macro-run "$path" | head -n 1)" "good day"
}

AMacroFileThatFailsIsToldWithItsLineAndLeavesNothingBehind() {
    local path code=0
    path=$(macro_file fail.bas 'Sub main()' '  Debug.Print "before"' '  x = "a" + 1' 'End Sub')
    "$tvtask" macro-run "$path" >"$work/out" || code=$?
    is "the code" "$code" 1
    is "what is printed" "$(head -n 4 "$work/out")" "before
$path:3:3: error: Type mismatch (error 13)
      x = \"a\" + 1
      ^"
    nothing_runs
    path=$(macro_file broken.bas 'Sub main()' '  x = = 1' 'End Sub')
    code=0
    "$tvtask" macro-run "$path" >"$work/out" || code=$?
    is "the code of one that doesn't compile" "$code" 1
    holds "what is printed" "$(cat "$work/out")" "$path:2:7: error: Expected: expression"
}

AMacroFileThatDoesNotEndIsEnded() {
    local path code=0
    path=$(macro_file endless.bas 'Sub main()' '  Debug.Print "on and on"' '  Do: Loop' 'End Sub')
    "$tvtask" macro-run "$path" --timeout 1 >"$work/out" || code=$?
    is "the code" "$code" 1
    is "what it printed before" "$(head -n 1 "$work/out")" "on and on"
    holds "the last line" "$(tail -n 1 "$work/out")" "Ended by force after"
    nothing_runs
}

TheApplicationOfAMacroFileEndsWithTheHostHoweverThatEnds() {
    local path host
    path=$(macro_file endless.bas 'Sub main()' '  Debug.Print "on and on"' '  Do: Loop' 'End Sub')
    "$tvtask" macro-run "$path" >"$work/out" &
    host=$!
    wait_until holds_line "$work/out" "on and on"
    holds "the list of applications" "$(processes_of TORVANE.EXE)" 'TORVANE.EXE'
    kill -KILL "$host"
    wait "$host" 2>/dev/null || true
    wait_until nothing_runs_now
}

FilesAreCheckedOutWrittenAndCheckedInByTvtask() {
    make_vault
    tv checkout '\Parts\screw.step' >/dev/null
    is "the code for another user" "$(tv_code user anna@PC7 checkout '\Parts\screw.step')" 1
    holds "what it says" "$(cat "$work/err")" 'That user has to check it in'
    echo "another screw" >"$work/vault/Parts/screw.step"
    tv checkin '\Parts\screw.step' -m 'Changed' >/dev/null
    is "the version" "$(version_of '\Parts\screw.step')" 2
    tv card set '\Parts\screw.step' Number=Ä-100 On:date=2026-11-21 >/dev/null
    holds "the card" "$(tv card '\Parts\screw.step')" 'Ä-100'
    tv rm '\Parts\screw.step' >/dev/null
    is "the code when it is gone" "$(tv_code history '\Parts\screw.step')" 2
    tv restore '\Parts\screw.step' >/dev/null
    is "the version when it is back" "$(version_of '\Parts\screw.step')" 2
    is "the local copy" "$(cat "$work/vault/Parts/screw.step")" "another screw"
}

# listen OPTION… starts a listener; its messages go to the file heard.
listen() {
    "${TVLISTEN:-$root/tools/tvlisten.sh}" "$@" >"$work/heard" 2>"$work/listener" &
    listener=$!
    wait_until holds_line "$work/listener" 'Listening on'
}

heard() {
    cut -d' ' -f4- "$work/heard" | tr -d '\r'
}

# import_rounds NAME: new files, and one more version each round of a file that others import too.
import_rounds() {
    local round
    for round in 1 2 3 4 5 6; do
        echo "$1 $round" >"$work/$1/$1$round.txt"
        echo "$1 $round" >"$work/$1/common.txt"
        tv import "$(windows_path "$work/$1/$1$round.txt")" "$(windows_path "$work/$1/common.txt")" --to '\Shared'
    done
}

SeveralHostsAtOnceLoseNothing() {
    local -a names=(first second) workers=()
    local name worker version
    tv init >/dev/null
    for name in "${names[@]}"; do
        mkdir "$work/$name"
        import_rounds "$name" >"$work/$name.out" 2>&1 &
        workers+=($!)
    done
    for worker in "${workers[@]}"; do
        wait "$worker" || fail "$(cat "$work"/*.out)"
    done
    is "the number of files" "$(tv ls '\Shared' --json | json path | grep -c '\.txt$')" 13
    is "the latest version of what both imported" "$(version_of '\Shared\common.txt')" 12
    for version in {1..12}; do
        tv export '\Shared\common.txt' "$(windows_path "$work/version.$version")" --version "$version" >/dev/null
    done
    is "what its versions hold" "$(cat "$work"/version.* | sort | tr '\n' ',')" \
        "first 1,first 2,first 3,first 4,first 5,first 6,second 1,second 2,second 3,second 4,second 5,second 6,"
}

AListenerHearsThreeTimesOfANewFileAndOnceMoreBeforeOneIsReplaced() {
    make_vault
    tv task set Export ReplaceOutput=true >/dev/null
    local line="kind 1  $vault\Out\screw.stl"
    listen --count 3
    convert '\Parts\screw.step' >/dev/null
    wait "$listener" || fail "the listener ended with $?"
    is "what is heard of a new file" "$(heard)" "$line"$'\n'"$line"$'\n'"$line"
    holds "the end" "$(cat "$work/listener")" 'Heard 3 messages'
    listen --count 4
    convert '\Parts\screw.step' >/dev/null
    wait "$listener" || fail "the listener ended with $?"
    is "what is heard of a replaced file" "$(heard)" "$line"$'\n'"$line"$'\n'"$line"$'\n'"$line"
    nothing_is_left
}

ASecondListenerSaysThatThereIsOne() {
    listen
    local code=0
    "${TVLISTEN:-$root/tools/tvlisten.sh}" >/dev/null 2>"$work/err" || code=$?
    is "the code" "$code" 1
    holds "the line" "$(cat "$work/err")" 'is there a tvlisten running already?'
    kill -INT "$listener"
    wait "$listener" || fail "the listener ended with $?"
    holds "the end" "$(cat "$work/listener")" 'Heard 0 messages'
}

ARunWaitsForAListenerThatDoesNotAnswerAndGoesOnWhenItEnds() {
    make_vault
    listen --no-answer
    convert '\Parts\screw.step' >"$work/run" &
    local run=$!
    wait_until holds_line "$work/heard" 'screw.stl'
    sleep 2
    [[ -d /proc/$run ]] || fail "the run didn't wait"
    is "the number of messages" "$(wc -l <"$work/heard")" 1
    kill -INT "$listener"
    wait "$listener" || fail "the listener ended with $?"
    wait "$run" || fail "the run ended with $?"
    holds "the report" "$(cat "$work/run")" 'finished'
    is "the version" "$(version_of '\Out\screw.stl')" 1
    nothing_is_left
}

TheExitCodeTellsHowACommandEnded() {
    is "the code without a vault" "$(tv_code ls)" 3
    make_vault
    is "the code of a listing" "$(tv_code ls)" 0
    is "the code of a wrong path" "$(tv_code history '\Parts\scew.step')" 2
    is "the number of lines" "$(wc -l <"$work/err")" 1
    holds "the line" "$(cat "$work/err")" '\Parts\scew.step'
    is "the code of a wrong value" "$(tv_code task set Export StlQuality=fine)" 2
    is "the code of no command" "$(tv_code)" 2
}

"$1"
