# Sourced by ./run: configuring and building the presets, and the Wine prefixes that Windows programs run in.

build_folder=$root/build
presets=(linux-debug linux-release windows)

# People and tests have prefixes of their own, so that ending a test run can't end a person's programs.
wine_prefix=$build_folder/wineprefix
tests_wine_prefix=$build_folder/wineprefix_tests

export TVKERNEL=$build_folder/linux-release/bin/tvkernel

is_preset() {
    [[ " ${presets[*]} " == *" $1 "* ]]
}

fetch_libraries() {
    [[ -s $build_folder/third_party/sqlite3/sqlite3.c && -s $build_folder/third_party/pugixml/src/pugixml.cpp ]] ||
        step "Fetching pugixml and SQLite from Debian's source packages" "$build_folder/logs/fetch.log" \
            "$root/cmake/fetch_sources.sh" "$build_folder/third_party"
}

configure() {
    local preset=$1
    local -a launcher=()
    [[ $build_folder/$preset/build.ninja -nt $root/CMakePresets.json ]] && return
    if command -v ccache >/dev/null; then
        launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    fetch_libraries || return
    step "Configuring $preset" "$build_folder/logs/configure_$preset.log" \
        cmake -S "$root" --preset "$preset" "${launcher[@]}"
}

# Two ./run at once must not build in one folder. The lock isn't handed on to the compilers.
ninja_in() {
    local preset=$1
    shift
    flock -o "$build_folder/.build_lock" ninja -C "$build_folder/$preset" -j "$(nproc)" "$@"
}

# build PRESET TARGET…
build() {
    local preset=$1
    shift
    configure "$preset" || return
    if [[ -t 1 && ${CI:-} != true ]]; then
        local start
        start=$(milliseconds)
        say "Building $preset ($*)"
        ninja_in "$preset" "$@" >&3 || { echo "run: building $preset failed" >&2; return 1; }
        say "Building $preset ($*) … $(seconds_since "$start") s"
    else
        step "Building $preset ($*)" "$build_folder/logs/build_$preset.log" ninja_in "$preset" --quiet "$@"
    fi
}

has_work() {
    [[ ! -e $build_folder/$1/build.ninja || $root/CMakePresets.json -nt $build_folder/$1/build.ninja ]] ||
        [[ $(ninja_in "$1" -n "${@:2}" 2>&1 | tail -n 1) != "ninja: no work to do." ]]
}

# Builds when there is work to do, and is silent otherwise.
build_quietly() {
    if has_work "$@"; then
        build "$@"
    fi
}

# Makes the prefix when it is missing, and registers the component and the application when they have changed.
prepare_wine() {
    local title="Registering the programs in $(basename "$1")"
    [[ -e $1/.ready ]] || title="Making the Wine prefix $(basename "$1")"
    "$root/tools/wine_prefix.sh" --check "$1" "$build_folder/windows/bin" && return
    step "$title" "$build_folder/logs/wine_prefix.log" \
        flock -o "$build_folder/.wine_lock" "$root/tools/wine_prefix.sh" "$1" "$build_folder/windows/bin"
}

stop_wine() {
    [[ -d $1 ]] || return 0
    (
        WINEPREFIX=$1
        source "$root/cmake/wine_env.sh"
        "$TV_WINESERVER" -k
        timeout 20 "$TV_WINESERVER" -w
    ) >/dev/null 2>&1 </dev/null || true
}

# make_programs [quietly]: the add-in, the local edition and the geometry kernel, ready to run in people's prefix.
make_programs() {
    local how=build
    [[ ${1:-} == quietly ]] && how=build_quietly
    mkdir -p "$build_folder/logs"
    "$how" linux-release tvkernel
    "$how" windows programs
    prepare_wine "$wine_prefix"
}
