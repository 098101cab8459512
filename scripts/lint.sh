#!/usr/bin/env bash
# Layout of the sources, static analysis of the core, and the scripts.
# Usage: scripts/lint.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/build.sh
. scripts/build.sh

core='include runtime services mask lookup browse pickers control propertypage wizard'

check_scripts() {
  local script
  for script in demo test .ci/run scripts/*.sh; do
    bash -n "$script" || return
  done
  if command -v shellcheck >/dev/null; then shellcheck -x demo test .ci/run scripts/*.sh; fi
}

check_format() {
  git ls-files -z '*.h' '*.cpp' | xargs -0 -r clang-format --dry-run -Werror
}

# The analysis reads the build's own commands; g++ takes a warning that clang has not.
check_core() {
  local folders=() folder
  for folder in $core; do
    if [ -d "$folder" ]; then folders+=("$folder"); fi
  done
  find "${folders[@]}" -name '*.cpp' -print0 |
    xargs -0 -r -n 4 -P "$(nproc)" clang-tidy --quiet -p build/release \
      --extra-arg=-Wno-unknown-warning-option
}

scripts/install-dependencies.sh build run lint
configure_preset release
logs=build/release/log
run_quietly "$logs/lint-scripts.txt" 'Checking the scripts' check_scripts
run_quietly "$logs/lint-format.txt" 'Checking the layout of the sources' check_format
run_quietly "$logs/lint-code-map.txt" 'Comparing the code map' scripts/code-map.sh --check
run_quietly "$logs/lint-core.txt" 'Analysing the core' check_core
