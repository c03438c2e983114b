#!/usr/bin/env bash
# Sets up a fresh Debian machine, builds and runs every test through ctest.
#   ./test.sh          release build with debug info in build/
#   ./test.sh --asan   AddressSanitizer + UndefinedBehaviorSanitizer in build-asan/
set -euo pipefail
cd "$(dirname "$0")"
scripts/ensure-packages.sh
preset=default
[[ "${1:-}" == "--asan" ]] && preset=asan
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" -j"$(nproc)"
ctest --preset "$preset" -j"$(nproc)"
