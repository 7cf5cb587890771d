#!/usr/bin/env bash
# Installs the Debian packages the build needs; silent when all are present.
set -euo pipefail
packages=(
  build-essential cmake g++ make pkg-config
  qt6-base-dev qt6-qpa-plugins libgl-dev libcli11-dev
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  clang-format dpkg-dev file
  fonts-liberation
)
missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing missing packages: ${missing[*]}"
sudo_cmd=()
[ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
