#!/usr/bin/env bash
# Installs the Debian packages the Windows cross-build, its tests under Wine and
# the installer need; silent when all are present.
set -euo pipefail
here=$(dirname "$0")
bash "$here/install-packages.sh" \
  cmake make g++ g++-mingw-w64-x86-64 binutils-mingw-w64-x86-64 \
  googletest libcli11-dev librsvg2-bin icoutils nsis xvfb xauth
bash "$here/install-packages.sh" --with-recommends wine wine64
