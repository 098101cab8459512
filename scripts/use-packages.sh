#!/usr/bin/env bash
# Runs in a clean Debian as root: installs the packages that lie in /packages, uses them, removes them.
# scripts/test-packages.sh starts it.
set -euxo pipefail
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen HOME=/tmp
cd /tmp

fail() {
  echo "$1" >&2
  exit 1
}

# What a programmer who writes no CMake types.
build_by_pkg_config() {
  local name
  for name in core memory odbc postgres qt qtsql; do
    # shellcheck disable=SC2046
    g++ -fPIC -I/consumer/own "/consumer/use_$name.cpp" -o by_pkg_config \
      $(pkg-config --cflags --libs "tessaria-$name")
    ./by_pkg_config
  done
  [ "$(pkg-config --modversion tessaria-odbc)" = "$(dpkg-query -W -f '${Version}' libtessaria-dev)" ]
}

build_by_cmake() {
  local components=Core,Memory,Odbc,Postgres,Qt,QtSql name
  cmake -S /consumer -B consumer -G Ninja -DCOMPONENTS="$components" -DDESIGNER=ON \
    -DREADME=/usr/share/doc/Tessaria/README.md
  cmake --build consumer
  for name in core memory odbc postgres qt qt_moc qtsql; do "consumer/use_$name"; done
  DESIGNER=$PWD/consumer/load_designer tessaria-designer
}

# The program of the guide to deploying, whose package needs ours.
build_documented_program() {
  cmake -S /deploying -B deploying -G Ninja
  cmake --build deploying
  ctest --test-dir deploying --output-on-failure --no-tests=error
  cpack --config deploying/CPackConfig.cmake -B deploying
  dpkg-deb -f deploying/*.deb Depends | grep libtessaria-qt
}

apt-get update -q

# An operator's machine: the demo plays a whole day on a database of its own.
apt-get install -y -q /packages/libtessaria0* /packages/libtessaria-qt* /packages/tessaria-demo*
mkdir pictures
tessaria-demo --play pictures
[ -n "$(ls pictures/*.png)" ] || fail 'the demo saved no picture'

# Each of the others needs nothing of those after it.
apt-get install -y -q /packages/tessaria-tools*
tessaria-check --version
apt-get install -y -q /packages/tessaria-designer*
apt-get install -y -q /packages/libtessaria-dev*

# A programmer's machine.
apt-get install -y -q /packages/*.deb g++ cmake ninja-build pkg-config dpkg-dev file appstream desktop-file-utils
build_by_pkg_config
build_by_cmake
build_documented_program
tessaria-check-server --help
[ -s /usr/share/doc/Tessaria/README.pt-BR.md ] || fail 'the documentation is missing'
desktop-file-validate /usr/share/applications/org.tessaria.Demo.desktop
appstreamcli validate --no-net /usr/share/metainfo/org.tessaria.Demo.metainfo.xml

# Nothing of ours stays behind.
mapfile -t ours < <(dpkg-query -W -f '${Package}\n' 'libtessaria*' 'tessaria-*')
[ "${#ours[@]}" -eq 7 ] || fail "installed packages: ${ours[*]}"
apt-get purge -y -q "${ours[@]}"
if find /usr /etc -iname '*tessaria*' | grep .; then fail 'files were left behind'; fi
