# What a listener hears of a run.

# listen OPTION… starts a listener; its messages go to the file heard.
listen() {
    rm -f "$work/heard" "$work/listener"
    "${TVLISTEN:-$root/tools/tvlisten.sh}" "$@" >"$work/heard" 2>"$work/listener" &
    listener=$!
    wait_until holds_line "$work/listener" 'Listening on'
}

heard() {
    cut -d' ' -f4- "$work/heard" | tr -d '\r'
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
