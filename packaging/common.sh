# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=bash
#
# What ./run, ./test and tools/mopidy-server share. Sourced by bash.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd) # the top of the tree

die() {
    echo "${0##*/}: $*" >&2
    exit 1
}

# Commands to run when the script ends, the last one first.
at_exit_commands=()
at_exit() {
    at_exit_commands=("$1" "${at_exit_commands[@]}")
    trap run_at_exit EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
}
run_at_exit() {
    local command
    trap '' INT TERM
    for command in "${at_exit_commands[@]}"; do
        eval "$command"
    done
}

# Ends a process that this script has started, and waits for it.
stop_process() {
    kill "$1" 2>/dev/null || true
    wait "$1" 2>/dev/null || true
}

# Environment that a bare root shell or a container lacks and that Qt would warn about.
prepare_environment() {
    export HOME="${HOME:-$(getent passwd "$(id -u)" | cut -d: -f6)}"
    [ -d "$HOME" ] || export HOME=/
    if [ ! -d "${XDG_RUNTIME_DIR:-}" ]; then
        XDG_RUNTIME_DIR=$(mktemp -d)
        export XDG_RUNTIME_DIR
        at_exit "rm -rf '$XDG_RUNTIME_DIR'"
    fi
    # Debian's default outside of a desktop is a C locale, in which Qt cannot tell file names from bytes.
    case ${LC_ALL:-${LC_CTYPE:-${LANG:-}}} in
        '' | C | POSIX) export LC_ALL=C.UTF-8 ;;
    esac
}

packages_of() {
    local group
    for group in "$@"; do
        awk -v group="$group" '$1 == group { print $2 }' "$root/packaging/debian-packages.txt"
    done
}

missing_packages() {
    local wanted there
    wanted=$(packages_of "$@" | sort -u)
    # shellcheck disable=SC2016,SC2086 # the fields are dpkg's, the names are words
    there=$(dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
        awk '$1 == "installed" { print $2 }' | sort -u)
    comm -23 <(echo "$wanted") <(echo "$there")
}

# Installs what is missing of the given groups; when nothing is, that is all.
install_missing() {
    local missing log as_root=()
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    # shellcheck disable=SC2086 # the names are words
    echo "Installing" $missing
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || die "these packages are missing, and there is no sudo to install them"
        as_root=(sudo)
    fi
    log=$(mktemp)
    # shellcheck disable=SC2086
    if ! "${as_root[@]}" apt-get -q update >"$log" 2>&1 ||
        ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get -q -y install --no-install-recommends $missing >>"$log" 2>&1; then
        tail -n 20 "$log" >&2
        rm -f "$log"
        die "the packages could not be installed"
    fi
    rm -f "$log"
}

# Configures a preset once and builds it; silent when there is nothing to do or all goes well.
build_preset() {
    local log="$root/build/$1.log" status=0
    mkdir -p "$root/build"
    [ -e "$root/build/$1/build.ninja" ] || echo "Building in build/$1 ..."
    {
        [ -e "$root/build/$1/build.ninja" ] || (cd "$root" && cmake --preset "$1")
    } >"$log" 2>&1 && (cd "$root" && cmake --build --preset "$1") >>"$log" 2>&1 || status=$?
    [ "$status" = 0 ] && return
    tail -n 40 "$log" >&2
    die "the build failed; all of it is in $log"
}

has_display() {
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]
}

# start_telling SECONDS COMMAND...: starts it for the life of the script and waits for the first line it writes,
# which is then in $told. Fails when it ends or the time is over before that.
start_telling() {
    local seconds=$1 folder status=0
    folder=$(mktemp -d)
    mkfifo "$folder/line"
    "${@:2}" >"$folder/line" &
    at_exit "stop_process $!"
    read -r -t "$seconds" told <"$folder/line" || status=$?
    rm -r "$folder"
    return "$status"
}

# Starts an X server of its own on a free display, for the life of the script.
start_display() {
    local told
    start_telling 30 Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null || die "Xvfb does not start"
    export DISPLAY=":$told" LIBGL_ALWAYS_SOFTWARE=1
}
