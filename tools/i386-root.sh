# SPDX-License-Identifier: MIT
# A private i386 Debian system with a 32-bit Wine, made once per user and shared by all checkouts.
# Debian's 64-bit Wine cannot run 32-bit programs, and adding the i386 architecture to the
# machine itself conflicts as soon as its 64-bit libraries come from the security archive.

: "${HOME:=$(getent passwd "$(id -u)" | cut -d: -f6)}"
I386_ROOT=${XDG_CACHE_HOME:-$HOME/.cache}/quorvane/i386-root
I386_PACKAGES=wine,wine32,fonts-wine

# Run a command as the caller inside the i386 system. The project's folder has the same path in
# there. All mounts belong to the command's own mount namespace and vanish with it.
in_i386_root() {
    # shellcheck disable=SC2016
    as_root unshare --mount sh -ec '
        root=$1 project=$2 user=$3
        shift 3
        mkdir -p "$root$project"
        mount --rbind /dev "$root/dev"
        mount --bind /proc "$root/proc"
        # Wine knows the processors from there, and the benchmarks ask it for them.
        mount --rbind /sys "$root/sys"
        mount --bind "$project" "$root$project"
        exec chroot --userspec="$user" "$root" sh -c "cd \"\$0\" && exec \"\$@\"" "$project" "$@"
    ' sh "$I386_ROOT" "$PWD" "$(id -u):$(id -g)" "$@"
}

i386_root_complete() {
    [ "$(cat "$I386_ROOT/etc/quorvane" 2>/dev/null)" = "$I386_PACKAGES" ]
}

# The archive that this machine's apt uses.
debian_mirror() {
    apt-get indextargets --format '$(REPO_URI)' \
        'Created-By: Packages' 'Release: bookworm' 'Component: main' | head -n 1
}

# Make the i386 system unless it is there. Fails, saying why, where that is impossible.
make_i386_root() {
    i386_root_complete && return
    can_be_root || { say "A 32-bit Wine needs root (or sudo) once, to make $I386_ROOT"; return 1; }
    as_root unshare --mount mount --bind /proc /proc 2>/dev/null ||
        { say "A 32-bit Wine needs the right to mount folders, which this container lacks"; return 1; }
    need i386
    mkdir -p "${I386_ROOT%/*}"
    # A second project folder may be at it: wait for the lock, then look again.
    (
        flock 8
        i386_root_complete || debootstrap_i386_root
    ) 8>"$I386_ROOT.lock"
}

debootstrap_i386_root() {
    local mirror
    mirror=$(debian_mirror)
    say "Making a private i386 Debian with a 32-bit Wine in $I386_ROOT (about 1 GB, once)"
    as_root rm -rf --one-file-system "$I386_ROOT" "$I386_ROOT.new"
    logged debootstrap as_root unshare --mount debootstrap --variant=minbase --arch=i386 \
        --include="$I386_PACKAGES" bookworm "$I386_ROOT.new" "$mirror" || return 1
    echo "$I386_PACKAGES" | as_root tee "$I386_ROOT.new/etc/quorvane" >/dev/null
    as_root rm -rf "$I386_ROOT.new/var/cache/apt/archives" "$I386_ROOT.new/var/lib/apt/lists"
    as_root mv -T "$I386_ROOT.new" "$I386_ROOT"
}
