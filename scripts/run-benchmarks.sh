#!/usr/bin/env bash
# Runs every benchmark program built under the build folder.
set -euo pipefail
build_dir=${1:-build}
shopt -s nullglob
for program in "$build_dir"/bench/bench_*; do
  [ -x "$program" ] || continue
  echo "== $(basename "$program")"
  "$program" --benchmark_min_time=0.5
done
