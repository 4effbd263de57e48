#!/bin/sh
# Installs the Debian packages named on the command line, as far as they are missing.
# Exit status: 0 all there, 3 not allowed to install (the command to run is printed), 1 the installation failed.
set -eu

missing=
for package in "$@"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

# $missing is a list of words on purpose.
# shellcheck disable=SC2086
set -- apt-get -o DPkg::Lock::Timeout=120 install -y --no-install-recommends $missing

if [ "$(id -u)" -eq 0 ]; then
    as_root=
elif command -v sudo >/dev/null 2>&1 && sudo -n true 2>/dev/null; then
    as_root=sudo
else
    echo "Packages are missing. Run as root:" >&2
    echo "  apt-get update && $*" >&2
    exit 3
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT
export DEBIAN_FRONTEND=noninteractive
echo "Installing:$missing" >&2
$as_root "$@" >"$log" 2>&1 && exit 0
# The package lists may be old or missing.
if $as_root apt-get update >>"$log" 2>&1 && $as_root "$@" >>"$log" 2>&1; then
    exit 0
fi
cat "$log" >&2
echo "The packages could not be installed:$missing" >&2
exit 1
