#!/usr/bin/env bash
# Configures (once) and builds a preset of CMakePresets.json into build/<preset>. Only what changed is built again.
# Usage: scripts/build.sh [preset]
set -euo pipefail
cd "$(dirname "$0")/.."

preset=${1:-release}
[ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null
cmake --build "build/$preset" --parallel "$(nproc)"
