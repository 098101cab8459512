#!/usr/bin/env bash
# Makes the pictures of the order desk in both READMEs (docs/images/mesa-*.png) anew, from a session
# that the demo plays by itself. The page of Qt Designer beside them is made by
# scripts/designer-pictures.sh.
# Usage: scripts/readme-pictures.sh [BUILD]
#        (BUILD: build/release, with the demo; ImageMagick makes the pictures small)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

limit=120000  # bytes of a picture
played=$(mktemp -d)
trap 'rm -rf "$played"' EXIT

keep() {
  local picture=docs/images/$2.png
  convert "$played/$1.png" -strip +dither -colors 128 -define png:compression-level=9 "$picture"
  [ "$(stat -c %s "$picture")" -lt $limit ] || { echo "$picture is too large" >&2; return 1; }
}

QT_QPA_PLATFORM=offscreen "${1:-build/release}"/apps/demo/tessaria-demo --play "$played"
keep 06-endereco mesa-clientes
keep 18-lista mesa-lista
keep 36-calendario mesa-calendario
ls -l docs/images/mesa-*.png
