# The commands on the CAD application alone. Whatever becomes of a test, none of its applications outlives it.

# app_code WORD… runs "tvtask app WORD…" and tells its exit code; what it prints stands in out and err.
app_code() {
    local code=0
    "$tvtask" app "$@" >"$work/out" 2>"$work/err" || code=$?
    echo "$code"
}

# To be called first: however the test ends, what is left of its applications ends too.
leave_no_application() {
    at_end+=(end_applications)
}

end_applications() {
    "$tvtask" app stop --all --timeout 1 >/dev/null 2>&1
}

# Starts an application and prints its process id. Further words are options.
start_application() {
    "$tvtask" app start --json "$@" | json processId
}

# The list's patience is no match for a machine that stands still for a while.
application_answers() {
    "$tvtask" app list --json >"$work/list" && holds_line "$work/list" '"answers": true'
}

simple_macro() {
    macro_file "$1.bas" 'Sub main()' "  Debug.Print \"$1\"" 'End Sub'
}

put_in_registry() {
    "$TV_WINE" reg add "$@" /f >/dev/null 2>&1 </dev/null || fail "reg add $*"
}

take_from_registry() {
    "$TV_WINE" reg delete "$@" /f >/dev/null 2>&1 </dev/null
}

class='{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}'

TheInstalledVersionIsListedWithItsClassItsSourceAndItsCommandLine() {
    local out
    out=$("$tvtask" app versions) || fail "app versions ended with $?"
    holds "the list" "$out" "Torvane 2013 (default)
  class         Torvane.Application.21 $class
  found in      Setup key, 64-bit view
  command line  "
    is "the switch" "$(sed -nE '/^Torvane 2013/,/command line/s/.*TORVANE\.EXE( .*)/\1/p' <<<"$out")" " /B"
    holds "the list" "$out" "Without a version asked for, Torvane 2013 is started (registered server):"
    is "the problems" "$(grep problem <<<"$out" || true)" ""
    is "the JSON" "$("$tvtask" app versions --json | json source | xargs -d '\n')" \
        "Setup key, 64-bit view registered server"
}

add_in_key='HKCU\Software\Torvane\Applications\Quellor\TVTaskAddIn'

forget_version_2012() {
    take_from_registry 'HKLM\SOFTWARE\Torvane\Torvane 2012' /reg:32
    take_from_registry 'HKLM\SOFTWARE\Classes\Torvane.Application.20'
}

forget_regression_mode() {
    take_from_registry "$add_in_key" /v ForceRegressionMode
}

AVersionWhoseProgramIsMissingIsListedWithItsViewAndRefusedAtTheStart() {
    at_end+=(forget_version_2012)
    put_in_registry 'HKLM\SOFTWARE\Torvane\Torvane 2012\Setup' /reg:32 /v 'Torvane Folder' /d 'C:\Old CAD\'
    put_in_registry 'HKLM\SOFTWARE\Classes\Torvane.Application.20\CLSID' /ve /d "$class"
    holds "the list" "$("$tvtask" app versions)" "Torvane 2012
  class         Torvane.Application.20 $class
  found in      Setup key, 32-bit view
  command line  C:\\Old CAD\\TORVANE.EXE /R
  problem       The program 'C:\\Old CAD\\TORVANE.EXE' is missing (Setup key, 32-bit view). Repair the installation."
    is "the code of its start" "$(app_code start --version 2012)" 3
    holds "what is said" "$(cat "$work/err")" "Torvane 2012 can't be started. The program 'C:\\Old CAD\\TORVANE.EXE' is \
missing (Setup key, 32-bit view). Repair the installation. Versions that can be started: 2013."
    nothing_runs
}

TheUsersWishForRegressionModeShowsInTheCommandLine() {
    at_end+=(forget_regression_mode)
    put_in_registry "$add_in_key" /v ForceRegressionMode /t REG_DWORD /d 1
    is "the switches" "$("$tvtask" app versions | sed -nE 's/.*TORVANE\.EXE( .*)/\1/p')" " /R
 /R"
}

AnApplicationOutlivesItsCommandAndKeepsWhatMacrosDoInIt() {
    leave_no_application
    local out id
    out=$("$tvtask" app start --version 2013) || fail "app start ended with $?"
    id=$(sed -nE 's/^Started Torvane 2013 as process ([0-9]+): .*TORVANE\.EXE \/B$/\1/p' <<<"$out")
    [[ -n $id ]] || fail "no process id in: $out"
    holds "the processes" "$(processes_of TORVANE.EXE)" TORVANE.EXE
    out=$("$tvtask" app run "$(macro_file open.bas 'Sub main()' '  Dim app As Object, errors As Long, warnings As Long' \
        '  Set app = Application.Torvane' \
        "  Set spec = app.GetOpenDocSpec(\"$(windows_path "$root/samples/bracket.tvnprt")\")" \
        '  Set model = app.OpenDoc7(spec)' '  Debug.Print "opened "; model.GetTitle' \
        "  model.Extension.SaveAs \"$(windows_path "$work/out.tvnprt")\", 0, 1, Nothing, errors, warnings" \
        'End Sub')") || fail "app run ended with $?: $out"
    is "what the first macro does" "$(head -n 2 <<<"$out")" "opened bracket.tvnprt
Saved $(windows_path "$work/out.tvnprt")"
    out=$("$tvtask" app run "$(macro_file next.bas 'Sub main()' '  Debug.Print "nothing"' 'End Sub' 'Sub Other()' \
        '  Debug.Print "still "; Application.Torvane.GetFirstDocument.GetTitle' 'End Sub')" \
        --procedure other --pid "$id") || fail "the second app run ended with $?: $out"
    holds "what the second macro finds" "$(head -n 1 <<<"$out")" "still "
    wait_until application_answers
    out=$(cat "$work/list")
    is "the listed process" "$(json processId <<<"$out")" "$id"
    is "the listed revision" "$(json revision <<<"$out")" "21.1.0"
    holds "the listed documents" "$out" "tvnprt"
    is "the code of the stop" "$(app_code stop --timeout 60)" 0
    is "what the stop says" "$(cat "$work/out")" "Torvane 2013 (process $id) has ended"
    nothing_runs
    is "the list afterwards" "$("$tvtask" app list)" "No application that 'tvtask app start' started is running."
}

ARunOrAStopWithoutAnApplicationSaysSo() {
    is "the code of the run" "$(app_code run "$(simple_macro one)")" 3
    holds "what the run says" "$(cat "$work/err")" "Start one with: tvtask app start"
    is "the code of the stop" "$(app_code stop)" 3
    is "the code of the stop of all" "$(app_code stop --all)" 0
}

OfTwoApplicationsTheOneIsNamed() {
    leave_no_application
    local first second macro
    first=$(start_application)
    second=$(start_application)
    macro=$(simple_macro one)
    is "the code of a run in any" "$(app_code run "$macro")" 2
    holds "what it says" "$(cat "$work/err")" "say which one with --pid"
    holds "what it says" "$(cat "$work/err")" "$first (Torvane 2013, since "
    holds "what it says" "$(cat "$work/err")" "$second (Torvane 2013, since "
    is "the code of a run in one" "$(app_code run "$macro" --pid "$second")" 0
    is "what it prints" "$(head -n 1 "$work/out")" "one"
    is "the code of a stop of one" "$(app_code stop --pid "$first" --timeout 60)" 0
    is "the one that is left" "$("$tvtask" app list --json | json processId)" "$second"
    is "the code of a stop of all" "$(app_code stop --all --timeout 60)" 0
    nothing_runs
}

AMacroThatFailsInAKeptApplicationIsToldWithItsPlaceAndTheNextOneRuns() {
    leave_no_application
    local path
    start_application >/dev/null
    path=$(macro_file fail.bas 'Sub main()' '  Debug.Print "before"' '  x = "a" + 1' 'End Sub')
    is "the code" "$(app_code run "$path")" 1
    is "what is printed" "$(head -n 4 "$work/out")" "before
$path:3:3: error: Type mismatch (error 13)
      x = \"a\" + 1
      ^"
    is "the code of the next" "$(app_code run "$(simple_macro one)")" 0
    is "what the next prints" "$(head -n 1 "$work/out")" "one"
    is "the code of the stop" "$(app_code stop --timeout 60)" 0
    nothing_runs
}

AnApplicationThatCrashesUnderAMacroIsToldAndForgotten() {
    leave_no_application
    TORVANE_FAULTS='crash:at=macro@2' start_application >/dev/null
    is "the code of the first" "$(app_code run "$(simple_macro one)")" 0
    is "the code of the second" "$(app_code run "$(simple_macro two)")" 1
    is "what is said" "$(cat "$work/out")" "The CAD application ended while it ran main"
    is "the list" "$("$tvtask" app list --json)" "[]"
    nothing_runs
}

AnApplicationThatRefusesTheCallIsToldAndGoesOn() {
    leave_no_application
    TORVANE_FAULTS='throw:member=RunMacroEx,code=0x80010105@1' start_application >/dev/null
    is "the code" "$(app_code run "$(simple_macro one)")" 1
    is "what is said" "$(cat "$work/out")" "The CAD application didn't take the call to run main"
    is "the code of the next" "$(app_code run "$(simple_macro two)")" 0
    is "the code of the stop" "$(app_code stop --timeout 60)" 0
    nothing_runs
}

AnOldApplicationRunsMacrosByItsOldMember() {
    leave_no_application
    TORVANE_FAULTS='revision=16.2.0' start_application >/dev/null
    wait_until application_answers
    is "the listed revision" "$(json revision <"$work/list")" "16.2.0"
    is "the code" "$(app_code run "$(simple_macro one)")" 0
    is "what it prints" "$(head -n 1 "$work/out")" "one"
    is "the code of the stop" "$(app_code stop --timeout 60)" 0
    nothing_runs
}

AMacroThatTakesTooLongEndsItsApplication() {
    leave_no_application
    local id
    id=$(start_application)
    is "the code" "$(app_code run "$(macro_file endless.bas 'Sub main()' '  Debug.Print "on"' '  Do: Loop' 'End Sub')" \
        --timeout 2)" 1
    holds "the last line" "$(tail -n 1 "$work/out")" "; the CAD application (process $id) ended with it"
    nothing_runs
}

AnApplicationThatIgnoresTheWishToEndIsEndedByForce() {
    leave_no_application
    local id
    id=$(TORVANE_FAULTS=ignore-exit start_application)
    is "the code" "$(app_code stop --timeout 1)" 1
    is "what is said" "$(cat "$work/out")" \
        "Torvane 2013 (process $id) didn't end when it was asked to, within 1 seconds, and was ended by force"
    nothing_runs
}

AnApplicationThatHangsIsEndedByForceAndItsRunIsToldSo() {
    leave_no_application
    local id run code=0
    id=$(TORVANE_FAULTS=hang TORVANE_TRANSCRIPT=$(windows_path "$work/transcript") start_application)
    "$tvtask" app run "$(simple_macro one)" >"$work/run" 2>&1 &
    run=$!
    wait_until holds_line "$work/transcript" "$id fault hang"
    is "the code of a second run" "$(app_code run "$(simple_macro two)")" 1
    holds "what the second run says" "$(cat "$work/err")" "Another macro runs in the CAD application of process $id."
    is "the code of the stop" "$(app_code stop --timeout 1)" 1
    holds "what the stop says" "$(cat "$work/out")" "was ended by force"
    wait "$run" || code=$?
    is "the code of the run" "$code" 1
    is "what the run says" "$(cat "$work/run")" "The CAD application ended while it ran main"
    nothing_runs
}

AnApplicationGoesOnWhenTheHostOfARunIsKilled() {
    leave_no_application
    local run
    start_application >/dev/null
    : >"$work/run"
    "$tvtask" app run "$(macro_file long.bas 'Sub main()' '  Debug.Print "begun"' \
        "  Do While Dir(\"$(windows_path "$work/go")\") = \"\"" '    DoEvents' '  Loop' '  Debug.Print "late"' 'End Sub')" \
        >"$work/run" &
    run=$!
    wait_until holds_line "$work/run" "begun"
    kill -KILL "$run"
    wait "$run" 2>/dev/null || true
    touch "$work/go"
    is "the code of the next run" "$(app_code run "$(simple_macro next)")" 0
    is "what it prints first" "$(head -n 1 "$work/out")" "next"
    is "the code of the stop" "$(app_code stop --timeout 60)" 0
    nothing_runs
}

AnApplicationThatNeverRegistersIsEnded() {
    leave_no_application
    is "the code" "$(TORVANE_FAULTS=never-register app_code start --timeout 2)" 3
    is "what is said" "$(cat "$work/err")" \
        "tvtask: The CAD application didn't register itself within 2 seconds, and was ended."
    nothing_runs
    is "the list" "$("$tvtask" app list --json)" "[]"
}

AnApplicationThatEndsDuringItsStartIsTold() {
    leave_no_application
    is "the code" "$(TORVANE_FAULTS=crash app_code start)" 3
    holds "what is said" "$(cat "$work/err")" "tvtask: The CAD application ended during its start (exit code "
    nothing_runs
}
