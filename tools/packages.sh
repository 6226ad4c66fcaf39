# SPDX-License-Identifier: MIT
# The Debian packages each job needs, and their installation.

packages_of() {
    case $1 in
        build) echo cmake ninja-build g++ ccache googletest libutfcpp-dev libcli11-dev nlohmann-json3-dev ;;
        windows64) echo g++-mingw-w64-x86-64-posix mingw-w64-tools ;;
        windows32) echo g++-mingw-w64-i686-posix mingw-w64-tools ;;
        wine) echo wine wine64 fonts-wine fonts-wqy-microhei xvfb openbox ;;
        clang) echo clang libclang-rt-dev ;;
        coverage) echo llvm ;;
        format) echo clang-format ;;
        tidy) echo clang-tidy ;;
        rooms | plot) echo python3 ;;
        i386) echo debootstrap ;;
    esac
}

is_installed() {
    dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null | grep -qx installed
}

# need GROUP...: install what is missing of these groups.
need() {
    local group package missing=()
    for group in "$@"; do
        for package in $(packages_of "$group"); do
            is_installed "$package" || missing+=("$package")
        done
    done
    [ ${#missing[@]} -eq 0 ] || install_packages "${missing[@]}"
}

install_packages() {
    command -v apt-get >/dev/null || die "needs Debian 12, or these packages: $*"
    can_be_root || die "not allowed to install packages; as root: apt-get install $*"
    say "Installing $*"
    local apt=(as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300)
    logged apt-update "${apt[@]}" update || say "Package lists are not up to date; trying all the same"
    logged apt-install "${apt[@]}" install -y --no-install-recommends "$@" ||
        die "these packages could not be installed: $*"
}
