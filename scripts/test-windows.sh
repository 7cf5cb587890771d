#!/usr/bin/env bash
# Runs the tests of the Windows build under Wine: the whole CTest suite, then the
# comparison of tos-cli.exe with the Linux tos-cli. One Wine prefix of the build's
# own, one server and one desktop kept for all tests, on a virtual screen.
set -euo pipefail
build=${1:-build-windows}
jobs=${2:-2}
cd "$(dirname "$0")/.."
if [ -z "${TOS_ON_XVFB:-}" ]; then
  TOS_ON_XVFB=1 exec xvfb-run -a -s "-screen 0 1280x1024x24" bash "$0" "$@"
fi

export WINEPREFIX=$PWD/$build/wineprefix WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
started=$(date +%s)

trap 'wineserver -k 2>/dev/null || true' EXIT
# Left to itself the server quits a few seconds after each program ends, so every
# test paid for a new start, and a test starting while the old one was quitting
# could fail at once without a word. One server, kept until the end, avoids both.
mkdir -p "$WINEPREFIX"
wineserver -k 2>/dev/null || true
wineserver -p
# The first start of a new prefix sets it up, which takes a while.
wineboot -i >/dev/null 2>&1
# One desktop for the whole run (see the anchor's source), open before any test.
ready=$PWD/$build/desktop-anchor.ready
rm -f "$ready"
wine "$build/tests/win/desktop_anchor.exe" "Z:$ready" </dev/null >/dev/null 2>&1 &
for _ in $(seq 600); do [ -f "$ready" ] && break; sleep 0.1; done
[ -f "$ready" ] || { echo "Wine's desktop did not open" >&2; exit 1; }
echo "Wine prefix ready after $(( $(date +%s) - started )) s"

(cd "$build" && ctest -j "$jobs" --output-on-failure)

# The Linux tos-cli: from the Linux build when there is one (`make test` made it),
# else built on its own without the windows, tests or benchmarks.
host=${TOS_LINUX_BUILD:-build}
if [ ! -f "$host/CMakeCache.txt" ]; then
  host=$build/host-cli
  cmake -S . -B "$host" -DCMAKE_BUILD_TYPE=Release -DTOS_BUILD_GUI=OFF -DTOS_BUILD_TESTS=OFF \
    -DTOS_BUILD_BENCH=OFF >/dev/null
fi
cmake --build "$host" -j "$jobs" --target tos-cli >/dev/null
bash tests/win/compare_cli.sh "$host/src/cli/tos-cli" "$build/src/cli/tos-cli.exe"

cmake --build "$build" --target installer >/dev/null
bash tests/win/installer_test.sh "$build"/TolvarineObjectScripter-*-setup.exe "$build/installer-prefix"
echo "Windows tests passed in $(( $(date +%s) - started )) s"
