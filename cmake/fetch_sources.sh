#!/bin/bash
# Puts the libraries that Debian has no mingw package of below a folder of the build: pugixml's sources, and SQLite's
# amalgamation. Both come from Debian's source packages, which apt fetches and verifies. The machine's own source lists
# stay untouched; a private copy of them asks for source packages.
#
#   cmake/fetch_sources.sh [TARGET FOLDER]      (build/third_party unless given)
set -euo pipefail

target=${1:-$(dirname "$(dirname "$(readlink -f "$0")")")/build/third_party}

wanted_files=(
    pugixml/src/pugixml.cpp pugixml/src/pugixml.hpp pugixml/src/pugiconfig.hpp
    sqlite3/sqlite3.c sqlite3/sqlite3.h
)

all_present() {
    local file
    for file in "${wanted_files[@]}"; do
        [[ -s $target/$file ]] || return 1
    done
}

all_present && exit 0
mkdir -p "$target"
exec 9>"$target/.lock"
flock 9
all_present && exit 0

work=$(mktemp -d "$target/.work.XXXXXX")
trap 'rm -rf "$work"' EXIT
log=$work/log

fail() {
    echo "fetch_sources: $1" >&2
    [[ -s $log ]] && tail -n 25 "$log" >&2
    exit 1
}

# Both forms of source lists: deb822 paragraphs (*.sources) and one line an archive (*.list).
make_private_lists() {
    local file
    mkdir -p "$work/apt" "$work/lists/partial" "$work/cache/archives/partial"
    for file in /etc/apt/sources.list.d/*.sources; do
        [[ -f $file ]] || continue
        sed -E 's/^[Tt]ypes:.*/Types: deb-src/' "$file" >"$work/apt/$(basename "$file")"
    done
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [[ -f $file ]] || continue
        sed -nE 's/^[[:space:]]*deb(-src)?([[:space:]])/deb-src\2/p' "$file" | awk '!seen[$0]++' \
            >"$work/apt/$(basename "$file")"
    done
}

apt_private() {
    apt-get -q -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$work/apt" \
        -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work/cache" \
        -o APT::Sandbox::User="$(id -un)" -o Acquire::Retries=3 "$@" >>"$log" 2>&1
}

fetch() {
    mkdir -p "$work/$1"
    (cd "$work/$1" && apt_private source --download-only "$1") || fail "apt could not fetch the source of $1"
    dpkg-source --no-check -x "$work/$1"/*.dsc "$work/$1/tree" >>"$log" 2>&1 || fail "the source of $1 does not unpack"
}

# A folder appears under its final name only when it is complete.
install_folder() {
    rm -rf "${target:?}/$2"
    mkdir -p "$(dirname "$target/$2")"
    mv "$1" "$target/$2"
}

make_private_lists
# An archive without source packages makes the update complain; what counts is whether the two packages come.
apt_private update || echo "fetch_sources: apt complained about a source list; going on" >>"$log"

fetch pugixml
mkdir -p "$work/new/pugixml/src"
cp "$work"/pugixml/tree/src/pugi* "$work/new/pugixml/src/"
cp "$work"/pugixml/tree/LICENSE* "$work/new/pugixml/" 2>/dev/null || true
install_folder "$work/new/pugixml" pugixml

fetch sqlite3
(cd "$work/sqlite3/tree" && ./configure && make sqlite3.c sqlite3.h) >>"$log" 2>&1 ||
    fail "SQLite's amalgamation could not be made"
mkdir -p "$work/new/sqlite3"
cp "$work"/sqlite3/tree/sqlite3.{c,h} "$work/new/sqlite3/"
install_folder "$work/new/sqlite3" sqlite3

all_present || fail "something is missing below $target"
