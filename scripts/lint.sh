#!/usr/bin/env bash
# Checks the layout of all sources, runs the static analysis, and checks the scripts.
# Usage: scripts/lint.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/build.sh
. scripts/build.sh

check_scripts() {
  local script
  for script in demo test .ci/run scripts/*.sh; do
    bash -n "$script" || return
  done
  shellcheck -x demo test .ci/run scripts/*.sh || return
  PYTHONPYCACHEPREFIX=build/lint/python python3 -m py_compile scripts/*.py scripts/gdb/*.py
}

check_format() {
  git ls-files -z '*.h' '*.cpp' | xargs -0 -r clang-format --dry-run -Werror
}

# All sources that the build joins, and those that it compiles one by one, without generated ones.
sources_to_analyse() {
  sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' build/lint/compile_commands.json |
    grep -v '_autogen/' | grep -v '/tests/documentation/blocks/' | grep -v '/tests/layout/.*\.h\.cpp$' | sort -u
}

# A joined source includes other sources on purpose.
check_sources() {
  sources_to_analyse | xargs -r -n 1 -P "$(nproc)" clang-tidy --quiet -p build/lint \
    --config-file=.clang-tidy --checks=-bugprone-suspicious-include --header-filter="^$PWD/"
}

scripts/install-dependencies.sh build run lint fuzz bench
configure_preset lint
logs=build/lint/log
run_quietly "$logs/lint-scripts.txt" 'Checking the scripts' check_scripts
run_quietly "$logs/lint-format.txt" 'Checking the layout of the sources' check_format
run_quietly "$logs/lint-code-map.txt" 'Comparing the code map' scripts/code-map.sh --check
run_quietly "$logs/lint-sources.txt" 'Analysing the sources' check_sources
