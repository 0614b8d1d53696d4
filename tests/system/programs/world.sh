# The world of a test: a folder that goes at the end, a vault in it, and what is asked of both. Sourced.

root=$(dirname "$(dirname "$(dirname "$(dirname "$(readlink -f "$0")")")")")
tvtask=${TVTASK:-$root/tools/tvtask.sh}
source "$root/cmake/wine_env.sh"

work=$(mktemp -d)
# Commands that undo what the test changed outside of its folder.
at_end=()

# Ends with the test's own code. What a failed test left running would fail the next ones too.
clean_up() {
    local code=$? command
    set +e
    kill -KILL $(jobs -p) 2>/dev/null
    for command in "${at_end[@]}"; do
        "$command"
    done
    chmod -R u+w "$work"
    rm -rf "$work"
    exit "$code"
}
trap clean_up EXIT

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

process_of() {
    [[ -n $(processes_of "$1") ]]
}

no_process_of() {
    ! process_of "$1"
}

# A process that has been told to end, or whose connection has closed, takes its time on a busy machine.
nothing_runs() {
    wait_until no_process_of TORVANE.EXE
    wait_until no_process_of tvkernel
}

holds_line() {
    grep -qsF "$2" "$1"
}

# wait_until COMMAND… gives it a minute to come true.
wait_until() {
    local end=$((SECONDS + 60))
    until "$@"; do
        ((SECONDS < end)) || fail "$* didn't come true"
        sleep 0.1
    done
}

nothing_is_checked_out() {
    is "the list of files checked out" "$(tv ls -r --json | json checkedOutBy | grep -v '^null$' || true)" ""
}

nothing_is_left() {
    nothing_runs
    nothing_is_checked_out
}
