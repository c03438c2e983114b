#!/usr/bin/env bash
# Sets up a fresh Debian machine, builds Trackloom and starts it.
#   ./run.sh                              the desktop application
#   ./run.sh FILE… | --screenshot OUT.png  the desktop application with these arguments
#   ./run.sh gpx info FILE                the command-line tool, whenever the first
#                                         argument is a word that is neither an
#                                         option nor an existing file
set -euo pipefail
root="$(cd "$(dirname "$0")" && pwd)"
"$root/scripts/ensure-packages.sh"
(cd "$root" && cmake --preset default >&2)

if [[ $# -gt 0 && "$1" != -* && ! -e "$1" ]]; then
    cmake --build "$root/build" -j"$(nproc)" --target trackloom-cli >&2
    exec "$root/build/tools/cli/trackloom-cli" "$@"
fi

screenshot=false
for argument in "$@"; do
    [[ "$argument" == --screenshot* ]] && screenshot=true
done
if [[ "$(uname)" != Darwin && "$screenshot" == false && -z "${DISPLAY:-}" &&
      -z "${WAYLAND_DISPLAY:-}" && -z "${QT_QPA_PLATFORM:-}" ]]; then
    echo "Kein Bildschirm gefunden (weder DISPLAY noch WAYLAND_DISPLAY ist gesetzt)." >&2
    echo "Ohne Bildschirm starten: xvfb-run ./run.sh (Paket xvfb)," >&2
    echo "oder ein Bild der Oberfläche schreiben: ./run.sh --screenshot oberflaeche.png" >&2
    exit 1
fi
cmake --build "$root/build" -j"$(nproc)" --target trackloom >&2
exec "$root/build/app/trackloom" "$@"
