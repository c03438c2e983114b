#!/usr/bin/env bash
# Sets up a fresh Debian machine, builds Trackloom and runs the command-line
# tool with the given arguments (./run.sh gpx info FILE).
set -euo pipefail
cd "$(dirname "$0")"
scripts/ensure-packages.sh
cmake --preset default >&2
cmake --build --preset default -j"$(nproc)" >&2
exec build/tools/cli/trackloom-cli "$@"
