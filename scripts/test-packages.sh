#!/usr/bin/env bash
# Makes the Debian packages of the release build, installs them in a clean Debian, uses what they hold,
# and removes them again.
# Usage: scripts/test-packages.sh      (MIRROR: where Debian's packages come from)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/build.sh
. scripts/build.sh

readonly packages=build/packages logs=build/release/log
root=''

# Roots are made and entered by root alone.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo -- "$@"; fi
}

make_packages() {
  scripts/install-dependencies.sh build packages
  configure_preset release
  build_preset release
  rm -rf "$packages"
  run_quietly "$logs/cpack.txt" 'Making the packages' \
    cpack --config build/release/CPackConfig.cmake -B "$packages"
}

# A system with nothing but Debian's essential packages and apt.
make_root() {
  local release
  # shellcheck source=/dev/null
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  root=$(mktemp -d --tmpdir tessaria-root.XXXXXX)
  run_quietly "$logs/clean-root.txt" 'Making a clean system' \
    as_root mmdebstrap --variant=apt --mode=root --dpkgopt=force-unsafe-io \
    --dpkgopt='path-exclude=/usr/share/man/*' --dpkgopt='path-exclude=/usr/share/locale/*' \
    --aptopt='APT::Install-Recommends "false"' --aptopt='Acquire::Languages "none"' \
    --skip=cleanup/apt "$release" "$root" "${MIRROR:-http://deb.debian.org/debian}"
  # Servers of packages do not start there; the demo starts its own.
  printf '#!/bin/sh\nexit 101\n' | as_root tee "$root/usr/sbin/policy-rc.d" >/dev/null
  as_root chmod 755 "$root/usr/sbin/policy-rc.d" "$root"
  as_root mkdir "$root/packages"
  as_root cp "$packages"/*.deb "$root/packages"
  as_root cp -r tests/package/consumer "$root/consumer"
  scripts/documentation.py build/release/documented
  as_root cp -r build/release/documented/project/deploying "$root/deploying"
  as_root cp scripts/use-packages.sh "$root/use-packages.sh"
}

remove_root() {
  [ -z "$root" ] || as_root rm -rf --one-file-system "$root"
}

main() {
  trap remove_root EXIT
  make_packages
  make_root
  # shellcheck disable=SC2016
  run_quietly "$logs/use-packages.txt" 'Installing, using and removing the packages' \
    as_root unshare --mount --pid --fork --kill-child bash -c '
      mount --bind "$0" "$0" && mount -t proc proc "$0/proc" && mount --rbind /dev "$0/dev" && mount -t tmpfs tmp "$0/tmp" &&
      cp /etc/resolv.conf "$0/etc/resolv.conf" && exec chroot "$0" bash /use-packages.sh' "$root"
}

main
