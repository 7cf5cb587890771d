#!/usr/bin/env bash
# Installs the Debian packages the Windows cross-build, its tests under Wine and
# the installer need; silent when all are present.
set -euo pipefail
packages=(
  cmake make g++ g++-mingw-w64-x86-64 binutils-mingw-w64-x86-64
  wine wine64 xvfb xauth nsis
  googletest libcli11-dev librsvg2-bin icoutils
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
