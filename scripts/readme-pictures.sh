#!/usr/bin/env bash
# Makes the pictures of the READMEs (docs/images/pedido*.png, cliente.png, lista.png, calendario.png)
# anew, by an operator's session that the demo plays by itself, in light and in dark colours.
# The picture of the page in Qt Designer comes from scripts/designer-pictures.sh.
# Usage: scripts/readme-pictures.sh [BUILD]
#        (BUILD: build/release, with the demo)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

demo=${1:-build/release}/apps/demo/tessaria-demo
pictures=docs/images
most=120000 # bytes of a picture
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat >"$work/screen.json" <<'SCREEN'
{"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1440, "height": 900,
              "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}
SCREEN
export QT_QPA_PLATFORM=offscreen:configfile=$work/screen.json
unset QT_SCALE_FACTOR QT_FONT_DPI

# take FOLDER SCENE PICTURE: the picture of a scene of the session.
take() {
  cp "$work/$1"/[0-9][0-9]-"$2".png "$pictures/$3.png"
  local size
  size=$(stat -c %s "$pictures/$3.png")
  [ "$size" -lt $most ] || { echo "$pictures/$3.png is too large: $size bytes" >&2; exit 1; }
}

"$demo" --driver=postgres --play "$work/light" </dev/null
"$demo" --driver=postgres --dark --play "$work/dark" </dev/null
take light produto-completado pedido
take dark produto-completado pedido-escuro
take light inicio cliente
take light cidades-do-estado lista
take light calendario calendario
ls -l "$pictures"/{pedido,pedido-escuro,cliente,lista,calendario}.png
