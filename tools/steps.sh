# Sourced by ./run: telling what happens and how long it takes.
# Narration goes to descriptor 3: the output, or the error output where the output belongs to a program.

exec 3>&1

say() {
    printf '%s\n' "$*" >&3
}

milliseconds() {
    echo $((${EPOCHREALTIME/[.,]/} / 1000))
}

seconds_since() {
    local elapsed=$(($(milliseconds) - $1))
    printf '%d.%d' $((elapsed / 1000)) $((elapsed % 1000 / 100))
}

# step "Doing this" LOG COMMAND…: the command's output goes to the log, whose end is shown if the command fails.
step() {
    local title=$1 log=$2 start
    shift 2
    start=$(milliseconds)
    mkdir -p "$(dirname "$log")"
    printf '%s …' "$title" >&3
    if "$@" >"$log" 2>&1 </dev/null; then
        printf ' %s s\n' "$(seconds_since "$start")" >&3
        return 0
    fi
    printf ' failed after %s s\n' "$(seconds_since "$start")" >&3
    tail -n 60 "$log" >&2
    echo "run: $title failed; the whole log is $log" >&2
    return 1
}
