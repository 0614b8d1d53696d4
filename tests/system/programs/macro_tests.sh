# Macros that are expanded, checked and run without a task.

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

# A file with a macro whose lines are the arguments.
macro_file() {
    printf '%s\n' "${@:2}" >"$work/$1"
    windows_path "$work/$1"
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
    path=$(macro_file endless.bas 'Sub main()' '  Do: Loop' 'End Sub')
    "$tvtask" macro-run "$path" --timeout 1 >"$work/out" || code=$?
    is "the code" "$code" 1
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
    nothing_runs
}
