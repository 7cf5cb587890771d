#!/usr/bin/env bash
# Runs every fuzz program of the build folder (or only the one named third) for the
# given seconds each, one job at a time, at low priority. The corpus of each program
# grows in BUILD/fuzz-corpus/<name> from seeds made out of tests/data and examples/;
# a finding is saved under BUILD/fuzz-findings/ and makes the run fail.
set -euo pipefail
build_dir=${1:-build-fuzz}
seconds=${2:-60}
only=${3:-}
root=$(cd "$(dirname "$0")/.." && pwd)
seeds="$build_dir/fuzz-seeds"
rm -rf "$seeds"
mkdir -p "$seeds" "$build_dir/fuzz-findings"

scenes=$(find "$root/tests/data" "$root/examples" -name '*.scn' | sort)
scripts=$(find "$root/tests/data" -name '*.ms' | sort)
catalogue=$'[MiscStockObjects]\r\nTotalItems=2\r\nItem_1=Rock.SLB\r\nItem_2=Fox03.SLB\r\n'

# One seed a distinct line (and value behind "="), for the programs that read short texts.
seed_lines() { # dir tail-bytes files...
  local dir=$1 tail=$2 i=0
  shift 2
  mkdir -p "$dir"
  cat "$@" | tr -d '\r' | sed 's/^[^=]*=//' | tr ',' '\n' | sort -u | sed -n '1,300p' |
    while IFS= read -r line; do
      printf '%s%b' "$line" "$tail" >"$dir/line$((i += 1))"
    done
}

seed_lines "$seeds/fuzz_conversions" '' $scenes
printf '1.5E3' >"$seeds/fuzz_conversions/exponent"
printf '&HFFFF' >"$seeds/fuzz_conversions/hex"

seed_lines "$seeds/fuzz_elements" '\x01\x00\x00' $scenes
printf 'C:\\x\\a.b.SLT\x00\x00\x00' >"$seeds/fuzz_elements/path"
printf 'Tree_KV_Oak|001|002\x01\x00\x00' >"$seeds/fuzz_elements/row"

mkdir -p "$seeds/fuzz_profile" "$seeds/fuzz_load" "$seeds/fuzz_combiner" "$seeds/fuzz_script_check"
n=0
for scene in $scenes; do
  n=$((n + 1))
  { cat "$scene"; printf '\x00\x00'; } >"$seeds/fuzz_profile/scene$n"
  for flags in 0 1 8 14; do
    { cat "$scene"; printf '%s' "$catalogue"; printf "\\x$(printf %02x ${#catalogue})\\x$(printf %02x $flags)"; } \
      >"$seeds/fuzz_load/scene$n-$flags"
  done
done
cp "$root/resources/TolvarineObjectScripter.ini" "$seeds/fuzz_profile/catalogue"
n=0
for script in $scripts; do
  n=$((n + 1))
  cp "$script" "$seeds/fuzz_combiner/script$n"
  tr -d '\r' <"$script" >"$seeds/fuzz_script_check/script$n"
done
printf 'Big "Tree\n\\\\NAS\\%%x%%\\t.max\n' >"$seeds/fuzz_script_check/names"

declare -A max_len=(
  [fuzz_conversions]=256 [fuzz_elements]=1024 [fuzz_profile]=16384
  [fuzz_load]=16384 [fuzz_combiner]=16384 [fuzz_script_check]=8192
)
status=0
for program in "$build_dir"/fuzz/fuzz_*; do
  [ -x "$program" ] || continue
  name=$(basename "$program")
  [ -z "$only" ] || [ "$only" = "$name" ] || continue
  corpus="$build_dir/fuzz-corpus/$name"
  mkdir -p "$corpus"
  echo "== $name: $seconds s"
  if ! nice -n 15 "$program" "$corpus" "$seeds/$name" -max_total_time="$seconds" \
      -max_len="${max_len[$name]:-4096}" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
      -artifact_prefix="$build_dir/fuzz-findings/$name-" 2>"$build_dir/fuzz-$name.log"; then
    tail -40 "$build_dir/fuzz-$name.log"
    status=1
  fi
  grep -E '^(#[0-9]+.*DONE|stat::number_of_executed_units|stat::peak_rss_mb)' \
    "$build_dir/fuzz-$name.log" || true
done
exit $status
