#!/usr/bin/env bash
# Installs the Debian packages named that are missing; silent when all are present.
# --with-recommends also brings what they recommend (Wine needs that to run windows).
set -euo pipefail
recommends=(--no-install-recommends)
if [ "${1:-}" = "--with-recommends" ]; then
  recommends=()
  shift
fi
missing=()
for p in "$@"; do
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
"${sudo_cmd[@]}" apt-get install -y -qq "${recommends[@]}" "${missing[@]}" >/dev/null
