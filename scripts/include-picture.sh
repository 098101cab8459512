#!/usr/bin/env bash
# Draws the picture of includes in docs/architecture.md, and counts the circles of includes.
# Usage: scripts/include-picture.sh [--check]
#        (with it: only checks that the picture is up to date and that there is no circle)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

page=docs/architecture.md
folders='include runtime services mask lookup browse pickers wizard control propertypage hosts'

# "file target" for each include of one of our files in another, by paths from the root.
list_includes() {
  # shellcheck disable=SC2086
  git ls-files --cached --others --exclude-standard -- $folders | grep -E '\.(h|cpp)$' | sort -u |
    while IFS= read -r file; do [ ! -f "$file" ] || echo "$file"; done |
    xargs grep -HoE '^#include "[^"]+"' |
    sed -E 's|^([^:]+):#include "([^"]+)"|\1 \2|; s| tessaria/| include/tessaria/|'
}

# Reads those lines. A header and the source of the same name are one component, wherever the header
# is: a source includes its own header first. Arrows between folders that follow from others are
# left out.
draw() {
  awk '
    # Public headers of the core are a folder of their own; those of a host belong to its rooms.
    function folder(path) {
      if (path ~ /^include\/tessaria\/(memory|odbc|postgres|qt|qtsql)\// && stem(path) in source) path = source[stem(path)]
      sub(/\/[^\/]*$/, "", path)
      if (sub(/^include\/tessaria\//, "hosts/", path) && path !~ /^hosts\/(memory|odbc|postgres|qt|qtsql)/) return "include"
      return path ~ /^include/ ? "include" : path
    }
    function stem(path) { sub(/\.(h|cpp)$/, "", path); return path }
    function base(path) { path = stem(path); sub(/^.*\//, "", path); return path }
    function component(path) { path = stem(path); return (path in source) ? source[path] : path }
    # Whether a path leads from a to b through at least one other folder.
    function detour(a, b,  k) { for (k in room) if ((a, k) in way && (k, b) in way) return 1; return 0 }
    function place(name) { return (host(name) == "core" ? "0" : "1") name }
    function label(name) { gsub(/\//, "_", name); return name }
    function host(name) { return match(name, /^hosts\/[^\/]+/) ? substr(name, 1, RLENGTH) : "core" }
    { from[NR] = $1; to[NR] = $2 }
    $1 ~ /\.cpp$/ && !($1 in seen) { seen[$1] = 1; if (base($1) == base($2)) source[stem($2)] = stem($1) }
    END {
      for (i = 1; i <= NR; ++i) {
        a = component(from[i]); b = component(to[i])
        if (a != b && !((a, b) in edge)) { edge[a, b] = 1; node[a] = node[b] = 1 }
        a = folder(from[i]); b = folder(to[i])
        room[a] = room[b] = 1
        if (a != b) arrow[a, b] = way[a, b] = 1
      }
      # Components without outgoing or without incoming includes are in no circle.
      do {
        gone = 0
        split("", out); split("", in_)
        for (e in edge) { split(e, p, SUBSEP); out[p[1]] = 1; in_[p[2]] = 1 }
        for (n in node) if (!(n in out) || !(n in in_)) { delete node[n]; gone = 1 }
        for (e in edge) { split(e, p, SUBSEP); if (!(p[1] in node) || !(p[2] in node)) delete edge[e] }
      } while (gone)
      # The remaining components lead to a circle or come from one; those that lead back to
      # themselves are in it.
      count = 0
      for (k in node) for (a in node) if ((a, k) in edge) for (b in node) if ((k, b) in edge) edge[a, b] = 1
      for (a in node) if ((a, a) in edge) { ++count; print "include-picture: in a circle: " a > "/dev/stderr" }

      for (k in room) for (a in room) if ((a, k) in way) for (b in room) if ((k, b) in way) way[a, b] = 1
      n = 0
      for (r in room) names[++n] = r
      for (i = 2; i <= n; ++i) { x = names[i]; for (j = i - 1; j > 0 && place(names[j]) > place(x); --j) names[j + 1] = names[j]; names[j + 1] = x }
      print "```mermaid"
      print "flowchart TD"
      for (i = 1; i <= n; ++i) {
        if (host(names[i]) != group) {
          if (group) print "  end"
          group = host(names[i])
          print "  subgraph " label(group) "_ [" group "]"
        }
        text = names[i]
        sub(/^hosts\/[^\/]+\//, "", text)
        print "    " label(names[i]) "[" text "]"
      }
      print "  end"
      for (i = 1; i <= n; ++i) for (j = 1; j <= n; ++j) {
        a = names[i]; b = names[j]
        if ((a, b) in arrow && !detour(a, b)) print "  " label(a) " --> " label(b)
      }
      print "```"
      print ""
      print "Components in a circle of includes: " count "."
    }'
}

picture=$(list_includes | draw)
new=$(awk -v picture="$picture" '
  /^<!-- includes: end -->$/ { skip = 0 }
  !skip { print }
  /^<!-- includes: begin/ { print picture; skip = 1 }' "$page")

if [ "${1:-}" = --check ]; then
  if ! grep -q 'circle of includes: 0\.$' <<<"$picture"; then exit 1; fi
  if ! diff <(printf '%s\n' "$new") "$page"; then
    echo "$page is out of date: run scripts/include-picture.sh" >&2
    exit 1
  fi
else
  printf '%s\n' "$new" >"$page"
fi
