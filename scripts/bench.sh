#!/usr/bin/env bash
# Measures: the benchmark programs of bench/, then whole runs of an installed tool against peers beside it.
# Usage: scripts/bench.sh [--scale 0.1] [--rounds 5] [--only starts,index,rebuild,packages,commit,report,fetch]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh libjpeg-turbo-progs libbenchmark-dev libsqlite3-dev git curl nginx-light openssl
cmake --preset release -DMORVEX_BENCH=ON >/dev/null
scripts/build.sh release

for program in build/release/bench/bench_*; do
  [ -f "$program" ] && [ -x "$program" ] || continue
  printf '\n== %s\n' "${program##*/}"
  "$program" --benchmark_min_time=0.2
done

printf '\n== Whole runs\n'
installed=$(mktemp -d)
trap 'rm -rf "$installed"' EXIT
cmake --install build/release --prefix "$installed" >/dev/null
python3 bench/scenario/run_scenario.py "$installed" "$PWD/build/release/bench/peers" "$@"
