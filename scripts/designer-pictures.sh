#!/usr/bin/env bash
# Makes the pictures of the guide to forms in Qt Designer (docs/images/designer-*.png) anew, by its
# test in the real Qt Designer.
# Usage: scripts/designer-pictures.sh [BUILD]
#        (BUILD: build/release, with its tests)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

pictures=$PWD/docs/images
TESSARIA_PICTURES=$pictures ctest --test-dir "${1:-build/release}" -R '^test_real_designer$' \
  --output-on-failure
ls -l "$pictures"/designer-*.png
