#!/usr/bin/env bash
# Installs the Debian packages of scripts/packages.txt that are missing; does no
# network access at all when every one of them is present.
set -euo pipefail
list="$(dirname "${BASH_SOURCE[0]}")/packages.txt"
missing=()
while read -r package; do
    [[ -z "$package" || "$package" == \#* ]] && continue
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [[ "$status" == "install ok installed" ]] || missing+=("$package")
done < "$list"
if ((${#missing[@]})); then
    echo "Installing: ${missing[*]}"
    sudo_cmd=()
    [[ $(id -u) -ne 0 ]] && sudo_cmd=(sudo)
    export DEBIAN_FRONTEND=noninteractive
    "${sudo_cmd[@]}" apt-get update
    "${sudo_cmd[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
fi
