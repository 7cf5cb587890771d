#!/usr/bin/env bash
# Runs every benchmark program built under the build folder.
set -euo pipefail
build_dir=${1:-build}
shopt -s nullglob
# The floor: one read of the scene and one pass over its lines, built from the
# yardstick beside the project, and tos-cli's whole runs measured against it.
floor_source="$(dirname "$0")/../../shared/perf/read_and_index_floor.cpp"
if [ -f "$floor_source" ] && [ -x "$build_dir/bench/floor_ratios" ]; then
  g++ -O2 -std=c++20 -o "$build_dir/bench/floor" "$floor_source"
  echo "== floor_ratios"
  "$build_dir/bench/floor_ratios" "$build_dir/bench/floor" "$build_dir/src/cli/tos-cli"
  # bench_windows times the floor beside its Process.
  export TOS_FLOOR_PROGRAM="$build_dir/bench/floor"
fi
for program in "$build_dir"/bench/bench_*; do
  [ -x "$program" ] || continue
  echo "== $(basename "$program")"
  "$program" --benchmark_min_time=0.5
done
