# Shared by ./demo, ./test and .ci/run: quiet configuring and building.
# Source it from the root of the repository, with `set -euo pipefail`.
# shellcheck shell=bash

# run_quietly LOG WHAT COMMAND...: prints one line on success, the end of the log on failure.
run_quietly() {
  local log=$1 what=$2 begin=$SECONDS
  shift 2
  mkdir -p "$(dirname "$log")"
  printf '%s ... ' "$what"
  if "$@" >"$log" 2>&1 </dev/null; then
    printf 'done in %d s\n' $((SECONDS - begin))
  else
    printf 'failed\n'
    { grep -E -A 6 'error:|Error at|FAILED:' "$log" || tail -n 40 "$log"; } | head -n 60
    printf 'All of it: %s\n' "$log"
    return 1
  fi
}

# configure_preset PRESET
configure_preset() {
  local launcher=''
  if command -v ccache >/dev/null; then launcher=-DCMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
  export CCACHE_SLOPPINESS=pch_defines,time_macros  # without it, nothing with precompiled headers
  run_quietly "build/$1/log/configure.txt" "Configuring ($1)" \
    cmake --preset "$1" ${launcher:+"$launcher"}
}

# build_preset PRESET [TARGET...]: all targets when none is named.
build_preset() {
  local preset=$1 target=() name
  shift
  for name in "$@"; do target+=(--target "$name"); done
  run_quietly "build/$preset/log/build.txt" "Building ($preset)" \
    cmake --build "build/$preset" "${target[@]}"
}
