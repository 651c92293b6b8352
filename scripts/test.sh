#!/usr/bin/env bash
# Sets the machine up and runs every test: the layers, both compilers with warnings as errors, all tests as users get
# the program (GCC) and under the address and undefined-behaviour sanitizers (Clang), each fuzz target over its seeds.
set -euo pipefail
cd "$(dirname "$0")/.."

step() { printf '\n== %s\n' "$*"; }

# Leaks are looked for by hand: the leak checker traces its own process, which containers often forbid.
export ASAN_OPTIONS=detect_leaks=0

step "Set-up"
scripts/setup.sh clang libclang-rt-14-dev libbenchmark-dev libsqlite3-dev chromium nginx-light openssl tinyproxy \
  vsftpd

step "Layers"
scripts/check_layers

# Test programs find their scratch folders below TMPDIR; a fresh one keeps runs apart.
TMPDIR=$(mktemp -d)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

step "Release build and its tests"
scripts/build.sh release
ctest --test-dir build/release --output-on-failure --parallel "$(nproc)" --timeout 300

step "Sanitizer build with the other compiler, and its tests"
scripts/build.sh fuzz
ctest --test-dir build/fuzz --output-on-failure --parallel "$(nproc)" --timeout 600

step "Fuzz targets"
fuzz() {
  local name=${1##*/fuzz_} found
  found=$(mktemp -d)
  echo "fuzz_$name"
  # A fixed seed, so that a run that passed passes again.
  "$1" -seed=1 -runs=20000 -max_total_time=5 -timeout=120 -rss_limit_mb=4096 -artifact_prefix="$found/" \
    "$found" "fuzz/corpus/$name" >"$found.log" 2>&1 || { tail -40 "$found.log"; return 1; }
}
export -f fuzz
printf '%s\0' build/fuzz/fuzz/fuzz_* | xargs -0 -n 1 -P "$(nproc)" bash -euc 'fuzz "$1"' fuzz

step "All tests passed"
