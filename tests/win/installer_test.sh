#!/usr/bin/env bash
# The setup program under Wine, in a prefix of its own that no run has touched:
# silent install, the installed tos-cli.exe on the example project, silent
# uninstall, and then neither the folder nor the uninstall entry may be left.
set -euo pipefail
setup=$(realpath "$1")
prefix=$(realpath -m "$2")
source_dir=$(cd "$(dirname "$0")/../.." && pwd)
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\TolvarineObjectScripter'

rm -rf "$prefix"
export WINEPREFIX=$prefix WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
trap 'wineserver -k 2>/dev/null || true; rm -rf "$prefix"' EXIT
wineboot -i >/dev/null 2>&1

fail() { echo "installer test: $*" >&2; exit 1; }

wine "$setup" /S
wineserver -w
local_appdata=$(wine cmd /c 'echo %LOCALAPPDATA%' | tr -d '\r')
folder=$(winepath -u "$local_appdata\\Programs\\Tolvarine Object Scripter")
for file in tos-cli.exe TolvarineObjectScripter.ini TOS_Help.html Uninstall.exe; do
  [ -f "$folder/$file" ] || fail "$file not installed in $folder"
done
wine reg query "$uninstall_key" /v UninstallString >/dev/null 2>&1 || fail "no uninstall entry"
appdata=$(wine cmd /c 'echo %APPDATA%' | tr -d '\r')
menu=$(winepath -u "$appdata\\Microsoft\\Windows\\Start Menu\\Programs\\Tolvarine Object Scripter")
ls "$menu"/*.lnk >/dev/null 2>&1 || fail "no Start-menu entry in $menu"

# The installed tool finds the catalogue beside itself: the stock options show.
objects=$(wine "$folder/tos-cli.exe" objects "$source_dir/examples/Valley/Valley.prj")
grep -qx '\* Option 1:  All Stock Billboard Banners' <<<"$objects" || fail "unexpected objects: $objects"
grep -qx 'WaterTower' <<<"$objects" || fail "unexpected objects: $objects"

# The uninstaller runs a copy of itself from the temporary folder; wait for it.
wine "$folder/Uninstall.exe" /S
wineserver -w
[ ! -e "$folder" ] || fail "folder left behind: $(ls -A "$folder")"
[ ! -e "$menu" ] || fail "Start-menu entry left behind: $(ls -A "$menu")"
if wine reg query "$uninstall_key" >/dev/null 2>&1; then fail "uninstall entry left behind"; fi
echo "installer test: install, run and uninstall passed"
