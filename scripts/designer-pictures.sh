#!/usr/bin/env bash
# Makes the pictures of the guides to Qt Designer and to the SQL wizard (docs/images/designer-*.png)
# anew, by their tests in the real Qt Designer.
# Usage: scripts/designer-pictures.sh [BUILD]
#        (BUILD: build/release, with its tests)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

pictures=$PWD/docs/images
TESSARIA_PICTURES=$pictures ctest --test-dir "${1:-build/release}" -R '^test_real_designer$' \
  --output-on-failure
ls -l "$pictures"/designer-*.png
