#!/usr/bin/env bash
# Times Process All of the Windows program on 5,000 objects under Wine, on a
# virtual screen, with the Windows build's own Wine prefix (see test-windows.sh).
set -euo pipefail
build=${1:-build-windows}
cd "$(dirname "$0")/.."
if [ -z "${TOS_ON_XVFB:-}" ]; then
  TOS_ON_XVFB=1 exec xvfb-run -a -s "-screen 0 1280x1024x24" bash "$0" "$@"
fi
export WINEPREFIX=$PWD/$build/wineprefix WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
mkdir -p "$WINEPREFIX"
cmake --build "$build" --target bench_batch_window >/dev/null
wineboot -i >/dev/null 2>&1
wine "$build/tests/win/ui/bench_batch_window.exe"
