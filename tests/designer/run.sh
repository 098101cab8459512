#!/usr/bin/env bash
# Runs the tests inside the real Qt Designer, on a screen of their own with a window manager.
# Designer finds two copies of the plugin, of which it may use only one.
# Usage: run.sh DESIGNER PLUGINS DRIVER FORMS
#        (the folders of the plugin and of the driver, each with a folder "designer" inside)
set -euo pipefail
designer=$1 plugins=$2 driver=$3 forms=$4
shift 4

work=$(mktemp -d)
children=()
finish() {
  for child in "${children[@]}"; do kill "$child" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT

mkfifo "$work/display"
Xvfb -displayfd 3 -noreset -screen 0 1400x1000x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
children+=($!)
read -r number <"$work/display"

export DISPLAY=":$number" HOME="$work" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work"
export XDG_DATA_HOME="$work/data" LANG=C.UTF-8 QT_QPA_PLATFORM=xcb
mkdir -p "$work/copy"
cp -r "$plugins/designer" "$work/copy"
setxkbmap us -variant altgr-intl  # has keys for the letters with accents that are typed
export QT_PLUGIN_PATH="$plugins:$work/copy:$driver"
openbox >"$work/openbox.log" 2>&1 &
children+=($!)

cp "$forms"/*.ui "$work"
chmod u+w "$work"/*.ui
for name in compras vendas; do
  printf '[%s]\nDriver=PostgreSQL Unicode\nServername=/nenhum\n' "$name" >>"$work/odbc.ini"
done
export ODBCINI="$work/odbc.ini"
cd "$work"
export TESSARIA_FORMS="$work"
timeout 600 "$designer" "$work"/*.ui
