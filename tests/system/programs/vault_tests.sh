# Work on the files of a vault without a task, and several hosts in one vault.

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
