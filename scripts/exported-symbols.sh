#!/usr/bin/env bash
# Writes docs/exported-symbols.txt: the symbols that the shared libraries of a build export.
# Usage: scripts/exported-symbols.sh [--check] [BUILD]
#        (with --check: only checks whether the list is up to date; BUILD: build/release)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

list=docs/exported-symbols.txt
check=''
if [ "${1:-}" = --check ]; then check=yes && shift; fi
build=${1:-build/release}

# Our own strong symbols; weak ones (templates, inline functions) vary with the compiler.
symbols_of() {
  nm --dynamic --defined-only --demangle=gnu-v3 "$1" |
    sed -nE 's/^[0-9a-f]+ [TDBR] ((vtable|typeinfo|typeinfo name|guard variable|VTT) for )?tessaria::/\1tessaria::/p' |
    sed 's/\[abi:cxx11\]//' | LC_ALL=C sort -u
}

write_list() {
  local library file
  cat <<'TEXT'
# What each shared library exports: its own strong symbols, with the functions that the library's
# own hosts use of the core and of the record-set engine. scripts/exported-symbols.sh writes this list.
TEXT
  for library in Core Qt Sql Odbc Postgres QtSql Memory; do
    file=$(find "$build" -name "libTessaria$library.so" -not -path '*/tests/*' | head -n 1)
    if [ -z "$file" ]; then
      echo "exported-symbols: no libTessaria$library.so in $build" >&2
      return 1
    fi
    printf '\n[%s]\n' "$library"
    symbols_of "$file"
  done
}

new=$(write_list)
if [ -n "$check" ]; then
  if ! diff "$list" <(printf '%s\n' "$new"); then
    echo "$list is out of date: look at the difference, then run scripts/exported-symbols.sh" >&2
    exit 1
  fi
else
  printf '%s\n' "$new" >"$list"
fi
