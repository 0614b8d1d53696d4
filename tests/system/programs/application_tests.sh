# Runs at once, each with an application of its own, and a run that is ended in the middle.

# Gives the user start-up add-ins until the end of the test; those that he has come back then.
give_add_ins() {
    local key
    for key in AddInsStartup Startup; do
        try_registry export "HKCU\\Software\\Torvane\\$key" "$(windows_path "$work/users_$key.reg")" /y || true
    done
    at_end+=(take_add_ins)
    try_registry delete 'HKCU\Software\Torvane\AddInsStartup' /f || true
    try_registry delete 'HKCU\Software\Torvane\Startup' /f || true
    registry add 'HKCU\Software\Torvane\AddInsStartup\{A}' /ve /t REG_DWORD /d 1 /f
    registry add 'HKCU\Software\Torvane\AddInsStartup\{B}' /ve /t REG_SZ /d four /f
    registry add 'HKCU\Software\Torvane\AddInsStartup\{C}' /ve /t REG_DWORD /d 0 /f
    registry add 'HKCU\Software\Torvane\AddInsStartup\{D}' /ve /t REG_SZ /d on /f
    registry add 'HKCU\Software\Torvane\Startup\Applications\{E}' /ve /t REG_DWORD /d 1 /f
    is "the add-ins to begin with" "$(add_ins)" "$add_ins_on"
    export_add_ins before
}

take_add_ins() {
    local key
    for key in AddInsStartup Startup; do
        try_registry delete "HKCU\\Software\\Torvane\\$key" /f
        if [[ -e $work/users_$key.reg ]]; then
            try_registry import "$(windows_path "$work/users_$key.reg")"
        fi
    done
}

try_registry() {
    "$TV_WINE" reg "$@" >"$work/registry.out" 2>&1 </dev/null
}

registry() {
    try_registry "$@" || fail "reg $* ended with $?: $(cat "$work/registry.out")"
}

# export_add_ins NAME writes what the system's own tool exports to two files of that name.
export_add_ins() {
    registry export 'HKCU\Software\Torvane\AddInsStartup' "$(windows_path "$work/$1_first")" /y
    registry export 'HKCU\Software\Torvane\Startup' "$(windows_path "$work/$1_second")" /y
}

# The add-ins with their values, a line each.
add_ins() {
    export_add_ins now
    cat <(iconv -f UTF-16 -t UTF-8 "$work/now_first") <(iconv -f UTF-16 -t UTF-8 "$work/now_second") | tr -d '\r' |
        sed -nE 's/^\[.*\\(\{.\})\]$/\1/p; s/^@=//p' | paste -d' ' - -
}

add_ins_on='{A} dword:00000001
{B} "four"
{C} dword:00000000
{D} "on"
{E} dword:00000001'

add_ins_off='{A} dword:00000000
{B} ""
{C} dword:00000000
{D} ""
{E} dword:00000000'

add_ins_are_as_before() {
    export_add_ins after
    cmp "$work/before_first" "$work/after_first" || fail "the registry is not as it was before: $(add_ins)"
    cmp "$work/before_second" "$work/after_second" || fail "the registry is not as it was before: $(add_ins)"
}

# gate NAME prints statements that tell by the file NAME.ready that they are reached and wait for the file NAME.go.
gate() {
    printf '%s\r\n' "  Open \"$(windows_path "$work/$1.ready")\" For Output As #9" '  Close #9' \
        "  Do While Dir(\"$(windows_path "$work/$1.go")\") = \"\"" '  Loop'
}

# in_vault NAME makes what follows go to a vault of that name.
in_vault() {
    vault=$(windows_path "$work/vault_$1")
}

# Lets the task Export stop at a gate of that name before it converts.
gate_conversion() {
    sed -E 's/\r?$/\r/' "$root/src/script/templates/convert.bas" >"$work/$1.bas"
    gate "$1" >"$work/$1.gate"
    sed -i "/^\(Public \)\?Sub main()/r $work/$1.gate" "$work/$1.bas"
    grep -q "$1.ready" "$work/$1.bas" || fail "the macro of conversions has no main"
    tv task script Export "$(windows_path "$work/$1.bas")" >/dev/null
}

# A task Wait whose macro does nothing but stop at a gate.
make_waiting_task() {
    { printf 'Public Sub main()\r\n'; gate "$1"; printf 'End Sub\r\n'; } >"$work/$1.bas"
    tv task new Wait --kind script >/dev/null
    tv task script Wait "$(windows_path "$work/$1.bas")" >/dev/null
}

# start_run NAME ID [FAULTS] runs an instance in a host of its own, whose process is then in host[NAME].
declare -A host
start_run() {
    TORVANE_TRANSCRIPT=$(windows_path "$work/$1.transcript") TORVANE_FAULTS=${3:-} \
        "$tvtask" run "$2" --vault "$vault" >"$work/$1.out" 2>&1 &
    host[$1]=$!
}

end_run() {
    wait "${host[$1]}" || fail "the run $1 ended with $?: $(cat "$work/$1.out")"
    holds "what the run $1 prints" "$(cat "$work/$1.out")" 'finished'
}

goes_on() {
    [[ -d /proc/${host[$1]} ]] || fail "the run $1 doesn't go on: $(cat "$work/$1.out")"
}

# How many lines of a run's applications hold a text.
told() {
    grep -cF "$2" "$work/$1.transcript" || true
}

# The applications that a run has started.
started() {
    sed -nE 's/^([0-9]+) started .*/\1/p' "$work/$1.transcript"
}

# Each host has spoken with what it has started and with nothing else.
each_has_its_own() {
    local run
    for run in "$@"; do
        is "the applications that the run $run spoke with" \
            "$(sed -nE 's/^([0-9]+) call .*/\1/p' "$work/$run.transcript" | sort -u)" "$(started "$run" | sort -u)"
        is "how often the run $run attached" "$(told "$run" 'call Torvane.revisionnumber')" \
            "$(started "$run" | wc -l)"
    done
    is "the applications of both" "$(for run in "$@"; do started "$run"; done | sort | uniq -d)" ""
}

ACrashInOneOfTwoRunsAtOnceIsMetThereAndTheOtherKnowsNothingOfIt() {
    local conversion waiting
    give_add_ins
    in_vault first
    make_vault
    conversion=$(tv launch Export '\Parts\screw.step')
    in_vault second
    make_vault
    make_waiting_task second
    waiting=$(tv launch Wait '\Parts\screw.step')
    start_run second "$waiting"
    wait_until test -e "$work/second.ready"
    is "the add-ins during the one run" "$(add_ins)" "$add_ins_off"

    in_vault first
    start_run first "$conversion" "counter=$(windows_path "$work/counts"); crash:at=macro@1"
    end_run first
    is "the crashes of the conversion" "$(told first 'fault crash at macro')" 1
    is "its applications" "$(started first | wc -l)" 2
    is "the version of its file" "$(version_of '\Out\screw.stl')" 1
    nothing_is_checked_out

    goes_on second
    is "the other run's applications" "$(started second | wc -l)" 1
    is "their ends" "$(told second ended)" 0
    is "the add-ins during the other run" "$(add_ins)" "$add_ins_off"
    touch "$work/second.go"
    end_run second
    is "the end of its application" "$(told second ended)" 1
    is "its faults and dialogs" "$(told second fault) $(told second dialog)" "0 0"
    each_has_its_own first second
    add_ins_are_as_before
    in_vault second
    nothing_is_left
}

ADialogOfOneOfTwoConversionsAtOnceIsNotAnsweredByTheOther() {
    local name first second
    give_add_ins
    in_vault first
    make_vault
    gate_conversion first
    first=$(tv launch Export '\Parts\screw.step')
    in_vault second
    make_vault
    gate_conversion second
    second=$(tv launch Export '\Parts\screw.step')
    in_vault first
    # A dialog of the end is nobody's to answer, for nobody watches then, while the other run watches its macro.
    start_run first "$first" 'error-box:at=close'
    wait_until test -e "$work/first.ready"
    in_vault second
    start_run second "$second"
    wait_until test -e "$work/second.ready"
    is "the add-ins during both runs" "$(add_ins)" "$add_ins_off"

    touch "$work/first.go"
    end_run first
    is "the dialogs that were shown" "$(told first 'dialog shown "Microsoft Visual Basic"')" 1
    is "those that were answered" "$(told first 'dialog answered')" 0
    is "the keys that they got" "$(told first 'dialog ignored')" 0
    goes_on second
    is "the other run's applications" "$(started second | wc -l)" 1
    is "their ends" "$(told second ended)" 0
    # The run that began first had switched all of them off, so it is this one that has put them back.
    add_ins_are_as_before
    touch "$work/second.go"
    end_run second
    is "the other run's dialogs" "$(told second dialog)" 0
    each_has_its_own first second
    add_ins_are_as_before
    for name in first second; do
        in_vault "$name"
        is "the version in the $name vault" "$(version_of '\Out\screw.stl')" 1
        nothing_is_left
    done
}

ARunThatIsKilledLeavesNoProcessAndTheAddInsOffAndDisturbsNoOther() {
    local killed waiting
    give_add_ins
    in_vault first
    make_vault
    killed=$(tv launch Export '\Parts\screw.step')
    start_run first "$killed" 'hang:at=save'
    wait_until holds_line "$work/first.transcript" 'fault hang at save'
    process_of tvkernel || fail "there is no kernel to be left"
    in_vault second
    make_vault
    make_waiting_task second
    waiting=$(tv launch Wait '\Parts\screw.step')
    start_run second "$waiting"
    wait_until test -e "$work/second.ready"
    is "the number of applications" "$(processes_of TORVANE.EXE | wc -l)" 2

    kill -KILL "${host[first]}"
    wait "${host[first]}" 2>/dev/null || true
    wait_until one_application
    wait_until no_process_of tvkernel
    goes_on second
    is "the ends of the other run's application" "$(told second ended)" 0
    touch "$work/second.go"
    end_run second
    is "the other run's applications" "$(started second | wc -l)" 1
    nothing_is_left

    # Who had switched them off is gone, and nobody else knows what stood there.
    is "the add-ins afterwards" "$(add_ins)" "$add_ins_off"
    in_vault first
    is "the status of the killed run" "$(tv status "$killed" --json | json status | head -n 1)" 3
    start_run again "$killed"
    end_run again
    is "the version" "$(version_of '\Out\screw.stl')" 1
    is "the add-ins after the next run" "$(add_ins)" "$add_ins_off"
    nothing_is_left
}

one_application() {
    [[ $(processes_of TORVANE.EXE | wc -l) == 1 ]]
}
