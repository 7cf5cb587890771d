#!/usr/bin/env bash
# Starts the desktop program from the build tree, or explains the way out without a display.
set -euo pipefail
build_dir=${1:-build}
program="$build_dir/src/gui/TolvarineObjectScripter"
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
  cat >&2 <<TXT
No display found (DISPLAY and WAYLAND_DISPLAY are not set), so the window cannot open.
Use the command-line tool instead, for example:
  $build_dir/src/cli/tos-cli objects examples/Valley/Valley.prj
  $build_dir/src/cli/tos-cli --help
TXT
  exit 1
fi
exec "$program"
