#!/usr/bin/env bash
# Builds the benchmarks, runs them and prints their figures as one Markdown table.
# Usage: [BENCH_PROGRAMS=folder] scripts/speed-table.sh [--rows=10000000]...
#   BENCH_PROGRAMS  the folder of benchmarks that are already built; without it they are built
#   --rows=N  measures the list, and the work beside a data control, on so many rows too, which takes
#             long to fill; N other than 10000000 leaves only its JSON output
# The JSON outputs stay in build/bench-output.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/build.sh
. scripts/build.sh

rows=()
for option in "$@"; do
  case $option in
    --rows=[1-9]*) rows+=("${option#--rows=}") ;;
    *)
      echo "usage: scripts/speed-table.sh [--rows=10000000]..." >&2
      exit 2
      ;;
  esac
done

programs=${BENCH_PROGRAMS:-}
if [ -z "$programs" ]; then
  scripts/install-dependencies.sh build run bench >&2
  { configure_preset bench && build_preset release benchmarks; } >&2
  programs=build/release/bench
fi
output=build/bench-output
mkdir -p "$output"
rm -f "$output"/*.json

# measure OUTPUT PROGRAM [OPTION...]
measure() {
  local json=$output/$1.json program=$2
  shift 2
  printf 'Measuring: %s %s\n' "$program" "$*" >&2
  "$programs/$program" --benchmark_out="$json" --benchmark_out_format=json "$@" >&2
}

measure list list_bench
measure recordset recordset_bench
measure lookup lookup_bench
measure costs costs_bench
measure field field_bench
for count in ${rows[@]+"${rows[@]}"}; do
  measure "list-$count" list_bench "--rows=$count"
  measure "costs-$count" costs_bench "--rows=$count"
done
"$programs/speed_table" "$output"/*.json
