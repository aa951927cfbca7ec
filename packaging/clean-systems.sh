# shellcheck shell=bash
# Clean Debian systems to try things in, for try-package and try-source. Each is a folder of its own
# under build/roots; whatever runs in one, and whatever is mounted there, ends with the command that
# began it, also when we are interrupted or killed. Needs root; start from the repository's folder.

readonly roots=$PWD/build/roots
running= # the process of the command that runs in a system

say() { printf '==> %s\n' "$*"; }

# The names of the packages in the given sections of the package list; the first of alternatives.
listed() {
    awk -v sections=" $* " '
        /^[[:space:]]*(#|$)/ { next }
        /^\[/ { inside = index(sections, " " substr($1, 2, length($1) - 2) " "); next }
        inside { split($1, choices, "|"); print choices[1] }' packaging/debian-packages.txt
}

# Starts a command in a root, as $running: in a session of its own without a terminal, with nothing to
# read, with a /proc and a /dev that end with it, and with none of our environment. The root is
# mounted on itself, because nobody can make a mount namespace where / is no mount.
start_inside() {
    # shellcheck disable=SC2016 # the inner shell expands it
    setpriv --pdeathsig KILL setsid \
        unshare --mount --pid --fork --kill-child --propagation private bash -c '
        root=$1
        shift
        mount --bind "$root" "$root"
        mount -t proc proc "$root/proc"
        mount --rbind /sys "$root/sys"
        mount -t tmpfs -o mode=755 tmpfs "$root/dev"
        for device in null zero full random urandom tty; do
            touch "$root/dev/$device"
            mount --bind "/dev/$device" "$root/dev/$device"
        done
        mkdir -p "$root/dev/shm" "$root/dev/pts"
        mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
        mount --rbind /dev/pts "$root/dev/pts"
        ln -s /proc/self/fd "$root/dev/fd"
        ln -s fd/0 "$root/dev/stdin"
        ln -s fd/1 "$root/dev/stdout"
        ln -s fd/2 "$root/dev/stderr"
        # Not exec: who takes another user id is no longer told of our end; this process is.
        chroot "$root" /usr/bin/env -i HOME=/root TERM=dumb \
            PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "$@"
        exit "$?"' _ "$@" </dev/null &
    running=$!
}

# Waits until it has ended, and gives its status.
wait_inside() {
    local status=0
    wait "$running" || status=$?
    running=
    return "$status"
}

# Runs a command in a root.
inside() {
    start_inside "$@"
    wait_inside
}

# Installs packages in a root.
install_inside() {
    inside "$1" env DEBIAN_FRONTEND=noninteractive apt-get --quiet --quiet --yes \
        --no-install-recommends install "${@:2}"
}

# Makes a root for a purpose, and puts its folder into $root: made once, then copied from an archive.
make_root() {
    local purpose=$1 suite=$2 archive=$roots/clean-$2.tar made=$roots/making-$2
    root=$roots/$purpose-$suite
    mkdir -p "$roots"
    if [[ ! -e $archive ]]; then
        say "Making a clean system ($suite)"
        rm -rf --one-file-system "$made"
        debootstrap --variant=minbase "$suite" "$made" >"$roots/$suite.log"
        rm -f "$made"/var/cache/apt/archives/*.deb
        tar -C "$made" -cf "$archive.part" .
        mv "$archive.part" "$archive"
        rm -rf --one-file-system "$made"
    fi
    rm -rf --one-file-system "$root"
    mkdir "$root"
    tar -C "$root" -xf "$archive"
    cp /etc/resolv.conf "$root/etc/resolv.conf" 2>/dev/null || true
    inside "$root" apt-get --quiet --quiet update
}

# Gives a root the sources as they are now in /hmatnik, and nothing that was built from them.
copy_sources() {
    mkdir "$1/hmatnik"
    git ls-files -z --cached --others --exclude-standard |
        tar --null -T - -c | tar -x --no-same-owner -C "$1/hmatnik"
}

# Ends what still runs in a root: with the first process of its namespace, the others go as well.
end_inside() {
    if [[ -n $running ]]; then kill -KILL "$running" 2>/dev/null || true; fi
}

if ((EUID != 0)); then
    printf '%s: making a system needs root\n' "${0##*/}" >&2
    exit 1
fi
trap end_inside EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP
