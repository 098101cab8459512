#!/usr/bin/env bash
# Writes docs/code-map.md: a line for each file, the first sentence of the file's own comment.
# Usage: scripts/code-map.sh [--check]     (with it: only checks whether the map is up to date)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

map=docs/code-map.md

# The first sentence of the comment at the head of a file; nothing when there is none.
first_sentence() {
  awk '
    FNR == 1 && /^#!/ { next }
    /^<\?xml|^<ui / { next }
    /^ *<comment>/ { gsub(/^ *<comment>|<\/comment>.*/, ""); print; exit }
    /^(\/\/|--|#)( |$)/ {
      sub(/^(\/\/|--|#) ?/, "")
      text = text (text == "" ? "" : " ") $0
      next
    }
    { exit }
    END {
      if (match(text, /[.?](  | [A-Z]|$)|:(  |$)/)) text = substr(text, 1, RSTART)
      sub(/[.:]$/, "", text)
      print text
    }' "$1" | head -n 1
}

# A source without a comment of its own is described by its header: a test by the header of the same
# name, any other source by the public header that it includes first.
describe() {
  local text name
  text=$(first_sentence "$1")
  if [ -z "$text" ] && name=$(head -n 1 "$1" | grep -oP '(?<=^#include ")tessaria/[^"]+'); then
    text="What \`include/$name\` declares"
  fi
  if [ -z "$text" ] && [[ $1 == tests/*_test.cpp ]]; then
    name=${1#tests/}
    name=${name%_test.cpp}
    if [ -f "$name.h" ]; then
      text="Tests of \`$name.h\`"
    else
      name=${name##*/}
      text="Tests of ${name//_/ }"
    fi
  fi
  if [ -z "$text" ]; then
    echo "code-map: $1 has no comment that says what it is for" >&2
    text='?'
  fi
  printf '%s\n' "$text"
}

# Lines of one folder's own files; a header and its source share one.
list_folder() {
  local file
  while IFS= read -r file; do
    case $file in
      *.cpp) [ ! -f "${file%.cpp}.h" ] || continue ;;
    esac
    if [[ $file == *.h ]] && [ -f "${file%.h}.cpp" ]; then
      echo "- \`${file%.h}.{h,cpp}\`: $(describe "$file")"
    else
      echo "- \`$file\`: $(describe "$file")"
    fi
  done
}

source_files() {
  git ls-files --cached --others --exclude-standard -- \
    '*.h' '*.cpp' '*.cmake' '*.sh' '*.sql' '*.ui' demo test .ci/run | sort | uniq |
    while IFS= read -r file; do [ ! -f "$file" ] || echo "$file"; done
}

# Folders bottom up, as in docs/architecture.md; folders that are not named here follow.
folders_in_order() {
  local all folder
  all=$(source_files | sed 's|/[^/]*$||; /^[^/]*$/{/^demo$\|^test$/s/.*/./}' | sort -u)
  for folder in include runtime services mask lookup browse pickers control \
    hosts/memory hosts/sql hosts/odbc hosts/postgres hosts/qt hosts/qtsql apps bench tests scripts cmake; do
    grep -E "^$folder(/|\$)" <<<"$all" || true
  done
  grep -vE '^(include|runtime|services|mask|lookup|browse|pickers|control|hosts|apps|bench|tests|scripts|cmake)(/|$)' <<<"$all" || true
}

write_map() {
  local folder files
  files=$(source_files)
  cat <<'TEXT'
# Code map

What each file is for, bottom up. A header and the source of the same name share a line. The lines
are the files' own first sentences; `scripts/code-map.sh` writes this page.
[architecture.md](architecture.md) describes the layers.
TEXT
  while IFS= read -r folder; do
    if [ "$folder" = . ]; then printf '\n## Root\n\n'; else printf '\n## %s\n\n' "$folder"; fi
    while IFS= read -r file; do
      case $file in */*) ;; *) file=./$file ;; esac
      if [ "${file%/*}" = "$folder" ]; then echo "${file#./}"; fi
    done <<<"$files" | list_folder
  done < <(folders_in_order)
}

if [ "${1:-}" = --check ]; then
  if ! diff <(write_map) "$map"; then
    echo "$map is out of date: run scripts/code-map.sh" >&2
    exit 1
  fi
else
  new=$(write_map)
  printf '%s\n' "$new" >"$map"
fi
