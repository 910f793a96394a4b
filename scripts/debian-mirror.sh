# Where this machine installs Debian's packages from, for scripts that make a system of another release. To be sourced.
# shellcheck shell=bash

debian_mirror() {
    local found
    found=$(sed -En 's/^(URIs:|deb( \[.*\])?) +([a-z]+:[^ ]*\/debian)\/?( .*)?$/\3/p' \
        /etc/apt/sources.list /etc/apt/sources.list.d/* 2>/dev/null | head -n 1)
    [ -n "$found" ] || { echo "The sources of apt on this machine name no mirror of Debian." >&2; return 1; }
    echo "$found"
}
