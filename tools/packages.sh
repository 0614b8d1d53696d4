# Sourced by ./run: the Debian packages that the project needs, by purpose, and their installation.

build_packages=(
    ca-certificates cmake dpkg-dev fonts-dejavu-core g++ googletest libcairo2-dev libcli11-dev libjpeg-dev
    libocct-data-exchange-dev libsqlite3-dev libtbb-dev libtiff-dev make ninja-build nlohmann-json3-dev pkg-config tcl
)
windows_packages=(g++-mingw-w64-x86-64-posix mingw-w64-tools wine64)
samples_packages=(gmsh-doc occt-misc)
tests_packages=(ghostscript imagemagick poppler-utils xvfb)
fuzz_packages=(clang libclang-rt-14-dev)
format_packages=(clang-format)
tidy_packages=(clang-tidy)

# ensure_packages PURPOSE…
ensure_packages() {
    local purpose package
    local -a wanted missing=()
    local -A installed=()
    for purpose in "$@"; do
        local -n packages=${purpose}_packages
        wanted+=("${packages[@]}")
    done
    while read -r package; do
        installed[$package]=1
    done < <(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null |
        sed -n 's/^installed //p')
    for package in "${wanted[@]}"; do
        [[ -v installed[$package] ]] || missing+=("$package")
    done
    ((${#missing[@]})) || return 0
    install_packages "${missing[@]}"
}

install_packages() {
    local -a as_root=()
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "run: these packages are missing and there is no sudo to install them with: $*" >&2
            return 1
        fi
        # Asks for the password here, where it can be seen.
        sudo -v
        as_root=(sudo)
    fi
    step "Reading apt's package lists" "$build_folder/logs/apt_update.log" "${as_root[@]}" apt-get update || return
    # Small Debian images leave documentation out; gmsh-doc's is one of the samples.
    step "Installing $*" "$build_folder/logs/apt_install.log" \
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
        -o Acquire::Retries=3 -o Dpkg::Options::=--path-include='/usr/share/doc/gmsh-doc/*' "$@"
}
