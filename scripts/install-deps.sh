#!/usr/bin/env bash
# Installs the Debian packages the build needs; silent when all are present.
set -euo pipefail
bash "$(dirname "$0")/install-packages.sh" \
  build-essential cmake g++ make pkg-config \
  qt6-base-dev qt6-qpa-plugins libgl-dev libcli11-dev \
  libgtest-dev libgmock-dev googletest libbenchmark-dev \
  clang-format dpkg-dev file \
  fonts-liberation
