# What tvtask doctor sees on a machine where something is really broken, and that its advice heals it.

add_in_class='{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01}'
application_class='{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}'
start_up_add_in='HKCU\Software\Torvane\AddInsStartup\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0AD0C0}'
add_in_settings='HKCU\Software\Torvane\Applications\Quellor\TVTaskAddIn'
programs=$root/build/windows/bin

# A command of Windows, which has to be done.
windows() {
    "$TV_WINE" "$@" >"$work/windows" 2>&1 </dev/null || fail "$* ended with $?: $(cat "$work/windows")"
}

register_all() {
    "$TV_WINE" regsvr32 /s "$(windows_path "$programs/TVTaskAddIn.dll")"
    "$TV_WINE" "$programs/TORVANE.EXE" /regserver
} >/dev/null 2>&1 </dev/null

forget_start_up_add_in() {
    "$TV_WINE" reg delete "$start_up_add_in" /f
} >/dev/null 2>&1 </dev/null

forget_regression_mode() {
    "$TV_WINE" reg delete "$add_in_settings" /v ForceRegressionMode /f
} >/dev/null 2>&1 </dev/null

# doctor_ends_with CODE leaves what was printed in the file out.
doctor_ends_with() {
    is "the doctor's code" "$(tv_code doctor)" "$1"
}

# doctor_finds LEVEL SUBJECT WORDS
doctor_finds() {
    grep -E "^  $1 +$2" "$work/out" | grep -qF -- "$3" || fail "no $1 of $2 says '$3': $(cat "$work/out" "$work/err")"
}

# The commands below the findings of a subject that are in want of one.
commands_for() {
    subject=$1 awk '
        /^  [a-z]/ { wanted = ($1 == "problem" || $1 == "warning") && index($0, ENVIRON["subject"]) > 0 }
        wanted && /^               / { print substr($0, 16) }' "$work/out"
}

# follow_advice SUBJECT types what the doctor has printed, as a person would.
follow_advice() {
    commands_for "$1" >"$work/commands"
    [[ -s $work/commands ]] || fail "there is no advice for $1: $(cat "$work/out")"
    local command
    while IFS= read -r command; do
        if [[ $command == tvtask\ * ]]; then
            eval "\"\$tvtask\" ${command#tvtask }" >"$work/typed" 2>&1 </dev/null || fail "$command: $(cat "$work/typed")"
        else
            printf '@%s\r\n' "$command" >"$work/advice.bat"
            "$TV_WINE" cmd /c "$(windows_path "$work/advice.bat")" >"$work/typed" 2>&1 </dev/null ||
                fail "$command: $(cat "$work/typed")"
        fi
    done <"$work/commands"
}

AMachineInOrderHasNoProblemWithAVaultAndWithout() {
    make_vault
    doctor_ends_with 0
    holds "what is printed" "$(cat "$work/out")" '0 problems'
    doctor_finds ok start 'is revision 21'
    doctor_finds ok 'geometry kernel' 'answers'
    doctor_finds ok contents 'are there, whole'
    local code=0
    "$tvtask" doctor >"$work/out" || code=$?
    is "the code without a vault" "$code" 0
    holds "what is printed without a vault" "$(cat "$work/out")" 'temporary folder'
    nothing_is_left
}

TheDoctorsAdviceRegistersTheAddIn() {
    at_end+=(register_all)
    make_vault
    windows reg delete "HKLM\\SOFTWARE\\Classes\\CLSID\\$add_in_class" /f
    doctor_ends_with 1
    doctor_finds problem class "isn't registered"
    follow_advice "isn't registered"
    doctor_ends_with 0
    doctor_finds ok class 'is registered'
}

TheDoctorsAdviceLeadsTheServerBackToItsProgram() {
    at_end+=(register_all)
    make_vault
    windows reg add "HKLM\\SOFTWARE\\Classes\\CLSID\\$application_class\\LocalServer32" /ve /d 'Z:\nowhere\TORVANE.EXE' /f
    doctor_ends_with 1
    doctor_finds problem Torvane.Application 'names the program "Z:\nowhere\TORVANE.EXE"'
    follow_advice 'Z:\nowhere'
    doctor_ends_with 0
}

TheDoctorsAdviceBringsAClassIntoTheViewThatARunLooksIn() {
    at_end+=(register_all remove_class_of_32_bits)
    make_vault
    local key="HKLM\\SOFTWARE\\Classes\\CLSID\\$application_class"
    windows reg export "$key" "$(windows_path "$work/class.reg")" /y /reg:64
    windows reg import "$(windows_path "$work/class.reg")" /reg:32
    windows reg delete "$key" /f /reg:64
    doctor_ends_with 1
    doctor_finds problem Torvane.Application 'in the 32-bit view of the registry only'
    follow_advice 'in the 32-bit view of the registry only'
    doctor_ends_with 0
}

remove_class_of_32_bits() {
    "$TV_WINE" reg delete "HKLM\\SOFTWARE\\Classes\\CLSID\\$application_class" /f /reg:32
} >/dev/null 2>&1 </dev/null

TheDoctorsAdviceStoresASettingInItsType() {
    at_end+=(forget_regression_mode)
    make_vault
    windows reg add "$add_in_settings" /v ForceRegressionMode /t REG_SZ /d 1 /f
    doctor_ends_with 0
    doctor_finds warning ForceRegressionMode 'is REG_SZ and no number, and is read as 0'
    follow_advice ForceRegressionMode
    doctor_ends_with 0
    doctor_finds ok ForceRegressionMode 0
}

TheDoctorsAdviceEndsAListenerThatDoesNotAnswer() {
    make_vault
    listen --no-answer
    doctor_ends_with 1
    doctor_finds problem listener "didn't answer within 15 seconds"
    follow_advice listener
    wait "$listener" || true
    doctor_ends_with 0
    doctor_finds ok listener 'none at'
}

TheDoctorTellsAListenerThatAnswers() {
    make_vault
    listen
    doctor_ends_with 0
    doctor_finds ok listener 'answers at'
    kill -INT "$listener"
    wait "$listener" || fail "the listener ended with $?"
}

TheDoctorsAdviceMakesAFolderOfTheVault() {
    make_vault
    rmdir "$work/vault/.quellor/temp"
    doctor_ends_with 1
    doctor_finds problem folder "isn't there"
    follow_advice "isn't there"
    doctor_ends_with 0
}

# Root writes whatever the rights of a folder say, but not into one that is fixed.
lock_folder() {
    chmod a-w "$1"
    ((UID)) || chattr +i "$1" 2>/dev/null || true
}

unlock_vault() {
    ((UID)) || chattr -i "$work/vault" 2>/dev/null
    chmod u+w "$work/vault"
}

TheDoctorSeesAVaultFolderThatCannotBeWritten() {
    at_end+=(unlock_vault)
    make_vault
    lock_folder "$work/vault"
    if touch "$work/vault/probe" 2>/dev/null; then
        echo "this disk lets root write everywhere, so there is nothing to see"
        return
    fi
    doctor_ends_with 1
    doctor_finds problem folder "can't be written"
    unlock_vault
    doctor_ends_with 0
}

TheDoctorSeesAPlaceOutsideOfTheVaultThatCannotBeWritten() {
    make_vault
    tv task set Export 'OutputPath=Z:\sys\kernel\<Filename>' >/dev/null
    doctor_ends_with 1
    doctor_finds problem "task 'Export'" "\"Z:\\sys\\kernel\" can't be written"
    tv task set Export 'OutputPath=<VaultPath>\Out\<Filename>' >/dev/null
    doctor_ends_with 0
}

TheDoctorsAdviceGivesATaskAMacroThatCompiles() {
    make_vault
    printf 'Sub main()\nDim a As\nEnd Sub\n' >"$work/bad.bas"
    tv task script Export "$(windows_path "$work/bad.bas")" >/dev/null
    doctor_ends_with 1
    doctor_finds problem "task 'Export'" "its macro doesn't compile, line 2"
    commands_for "task 'Export'" >"$work/commands"
    is "the code of the first command" "$(eval "tv_code $(sed -n '1s/^tvtask //; 1s/ --vault.*//p' "$work/commands")")" 1
    doctor_ends_with 1
    eval "\"\$tvtask\" $(sed -n '2s/^tvtask //p' "$work/commands")" >/dev/null
    doctor_ends_with 0
}

TheDoctorsAdviceEndsAnApplicationThatNobodyMinds() {
    make_vault
    # The shell that starts it is gone at once.
    "$TV_WINE" cmd /c "start /b $(windows_path "$programs/TORVANE.EXE") /B" >/dev/null 2>&1 </dev/null
    wait_until process_of TORVANE.EXE
    doctor_ends_with 0
    doctor_finds warning 'TORVANE.EXE [0-9]+' 'the program that started it is gone'
    follow_advice 'the program that started it is gone'
    wait_until no_process_of TORVANE.EXE
    doctor_ends_with 0
    doctor_finds ok 'running applications' none
}

TheDoctorsAdviceRepairsWhatAKilledRunLeaves() {
    at_end+=(forget_start_up_add_in)
    make_vault
    windows reg add "$start_up_add_in" /ve /t REG_DWORD /d 1 /f
    local id
    id=$(tv launch Export '\Parts\screw.step')
    # A listener that doesn't answer holds the run in the midst of its macro.
    listen --no-answer
    "$tvtask" run "$id" --vault "$vault" >"$work/run" 2>&1 &
    local run=$!
    wait_until holds_line "$work/heard" 'screw.stl'
    kill -KILL "$run"
    wait "$run" || true
    kill -KILL "$listener"
    wait "$listener" || true
    # The application ends with its host or is ended here; one that goes on is another test's subject.
    "$TV_WINE" taskkill /F /IM TORVANE.EXE >/dev/null 2>&1 </dev/null || true
    wait_until no_process_of TORVANE.EXE
    doctor_ends_with 1
    doctor_finds problem "run $id" 'is gone'
    doctor_finds warning '\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0AD0C0}' 'is switched off (0)'
    follow_advice '{5A1C7F30-8F0E-4B52-9A44-2F6D1C0AD0C0}'
    follow_advice "run $id"
    doctor_ends_with 0
    doctor_finds ok 'start-up add-ins' 'all switched on'
    doctor_finds ok 'running applications' none
    doctor_finds ok 'claimed runs' none
    is "the status" "$(tv status "$id" --json | json statusText)" finished
    nothing_runs
}
