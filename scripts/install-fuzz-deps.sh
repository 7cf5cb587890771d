#!/usr/bin/env bash
# Installs what the fuzz build needs besides the ordinary build: clang and its
# libFuzzer runtime. Silent when all are present.
set -euo pipefail
here=$(dirname "$0")
bash "$here/install-deps.sh"
bash "$here/install-packages.sh" clang-14 libclang-rt-14-dev
