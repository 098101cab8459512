#!/usr/bin/env bash
# Installs the Debian packages that the named groups need and that are missing.
# Usage: scripts/install-dependencies.sh [build|run|lint|fuzz|bench|packages ...]     (default: build run)
set -euo pipefail

# docs/dependencies.md says what each package is for.
packages_of() {
  case $1 in
    build)
      echo cmake ninja-build g++ libgtest-dev libgmock-dev \
        qt6-base-dev qt6-base-private-dev qt6-tools-dev libqt6opengl6-dev unixodbc-dev libpq-dev
      ;;
    run)
      echo postgresql pgbouncer unixodbc odbc-postgresql libqt6sql6-psql libqt6sql6-odbc \
        qt6-translations-l10n fonts-dejavu-core designer-qt6 xvfb openbox xdotool \
        doxygen python3
      ;;
    lint) echo clang-format clang-tidy shellcheck python3 ;;
    fuzz) echo clang libclang-rt-dev llvm ;;
    bench) echo libbenchmark-dev ;;
    packages) echo dpkg-dev file mmdebstrap ;;
    *)
      echo "install-dependencies: no group named '$1' (build, run, lint, fuzz, bench, packages)" >&2
      return 1
      ;;
  esac
}

is_installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# The commands that show, on another system, that what the groups need is installed.
commands_of() {
  case $1 in
    build) echo cmake ninja c++ ;;
    run) echo pg_config isql doxygen python3 ;;
    lint) echo clang-format clang-tidy shellcheck python3 ;;
    fuzz) echo clang++ ;;
    packages) echo dpkg-shlibdeps mmdebstrap ;;
    *) echo ;;
  esac
}

stop_on_other_system() {
  local group command missing=''
  for group in "$@"; do
    for command in $(commands_of "$group"); do
      command -v "$command" >/dev/null || missing+=" $command"
    done
  done
  if [ -z "$missing" ] && [ -n "${TESSARIA_SKIP_INSTALL:-}" ]; then return 0; fi
  {
    echo "This is no Debian system, so nothing can be installed here."
    [ -z "$missing" ] || echo "Commands that are missing:$missing"
    echo "Wanted, by Debian package name:"
    for group in "$@"; do echo "  $group: $(packages_of "$group")"; done
    echo "With all of that in place, set TESSARIA_SKIP_INSTALL=1 and run this again."
  } >&2
  return 1
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo -- "$@"
  else
    echo "Root or sudo is needed to run: $*" >&2
    return 1
  fi
}

install_missing() {
  local log
  log=$(mktemp)
  echo "Installing: $*"
  if ! {
    as_root apt-get -q update &&
      as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -q install -y --no-install-recommends "$@"
  } </dev/null >"$log" 2>&1; then
    tail -n 40 "$log" >&2
    rm -f "$log"
    echo "The packages could not be installed." >&2
    return 1
  fi
  rm -f "$log"
}

main() {
  local group package wanted='' missing=()
  [ $# -gt 0 ] || set -- build run
  for group in "$@"; do wanted+=" $(packages_of "$group")" || return 1; done
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    stop_on_other_system "$@"
    return
  fi
  [ -z "${TESSARIA_SKIP_INSTALL:-}" ] || return 0
  for package in $wanted; do
    is_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] || install_missing "${missing[@]}"
}

main "$@"
