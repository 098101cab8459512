#!/usr/bin/env bash
# Builds the fuzzers and runs each for some seconds.
# Inputs that fail are kept in build/sanitizers/found.
# Usage: scripts/fuzz.sh [SECONDS]      (20 seconds for each)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/build.sh
. scripts/build.sh

seconds=${1:-20}

scripts/install-dependencies.sh build fuzz
export UBSAN_OPTIONS=print_stacktrace=1
configure_preset sanitizers
build_preset sanitizers fuzzers
mkdir -p build/sanitizers/found
for program in build/sanitizers/tests/fuzz/*_fuzz; do
  name=$(basename "$program")
  mkdir -p "build/sanitizers/corpus/$name"
  run_quietly "build/sanitizers/log/$name.txt" "Fuzzing ($name)" \
    "$program" -max_total_time="$seconds" -max_len=256 -timeout=10 -rss_limit_mb=4096 \
    -artifact_prefix="build/sanitizers/found/$name-" "build/sanitizers/corpus/$name"
done
