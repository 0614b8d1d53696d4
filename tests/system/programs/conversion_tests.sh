# Tasks that convert real files.

TheApplicationOfARunIsSeenWhileItRuns() {
    make_vault
    tv task new Wait --kind script >/dev/null
    printf '%s\r\n' 'Sub main()' "  Do While Dir(\"$(windows_path "$work/go on")\") = \"\"" '  Loop' 'End Sub' \
        >"$work/wait.bas"
    tv task script Wait "$(windows_path "$work/wait.bas")" >/dev/null
    local id
    id=$(tv launch Wait '\Parts\screw.step')
    tv run "$id" >"$work/run" &
    local run=$!
    wait_until process_of TORVANE.EXE
    touch "$work/go on"
    wait "$run" || fail "the run ended with $?: $(cat "$work/run")"
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
