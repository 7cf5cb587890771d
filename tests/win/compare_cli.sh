#!/usr/bin/env bash
# tos-cli.exe under Wine must write the same bytes as the Linux tos-cli: standard
# output, standard error, exit status and the files it writes, for the example
# project. Paths differ only in their form, so both runs work in copies of the
# project under one name, and each path is written back to a common form first.
set -euo pipefail
linux_cli=$(realpath "$1")
windows_cli=$(realpath "$2")
source_dir=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# One case a line: a name, then the arguments, separated by "|"; @ROOT@ stands for the
# run's folder, a path beginning with "/" on both sides.
cases=(
  "objects|objects|Valley.prj"
  "perimeter|objects|Valley.prj|--perimeter"
  "grid|objects|Valley.prj|--grid-size|512"
  "absolute|objects|@ROOT@/Valley/Valley.prj"
  "tree|script|Valley.prj|Tree|--max-file|C:\\models\\tree.max|--use-tolvarine-name"
  "stock|script|Valley.prj|* Option 1:  All Stock Billboard Banners|--max-file|b.max|--max-object|B"
  "unsaved|script|Valley.prj|Barn|--max-file|barn.max|--use-max-name|--vertical-scale|1.5|--no-save"
  "combine|combine|All.ms|Valley_Tree.ms|Valley_Barn.ms"
  "missing|objects|Nowhere.prj"
  "badoption|objects|Valley.prj|--object-scale|1|--grid-size|2"
  "nothing|script|Valley.prj|NoSuchObject|--max-file|x.max|--max-object|X"
  "version|--version"
  "help|--help"
  "scripthelp|script|--help"
)

run_all() { # cli side
  local cli=$1 side=$2
  local root=$work/$side
  mkdir -p "$root/out"
  cp -r "$source_dir/examples/Valley" "$root/Valley"
  cp -r "$source_dir/resources/TolvarineObjectScripter.ini" "$root/Valley/"
  for entry in "${cases[@]}"; do
    IFS='|' read -r -a args <<<"${entry//@ROOT@/$root}"
    local name=${args[0]}
    # Barn is scripted first so that combine has both inputs.
    [ "$name" = combine ] && (cd "$root/Valley" && "${launcher[@]}" "$cli" script Valley.prj Barn \
      --max-file barn.max --use-max-name --ini TolvarineObjectScripter.ini >/dev/null 2>&1 || true)
    local extra=()
    case "${args[*]:1}" in
      *--version* | *--help* | combine*) ;;
      *) extra=(--ini TolvarineObjectScripter.ini) ;;
    esac
    set +e
    (cd "$root/Valley" && "${launcher[@]}" "$cli" "${args[@]:1}" "${extra[@]}" \
      >"$root/out/$name.out" 2>"$root/out/$name.err")
    echo $? >"$root/out/$name.status"
    set -e
  done
}

launcher=()
run_all "$linux_cli" linux
launcher=(wine)
run_all "$windows_cli" windows

python3 - "$work" <<'PY'
import pathlib, re, sys
work = pathlib.Path(sys.argv[1])
linux_root = str(work / "linux").encode()
windows_root = ("Z:" + str(work / "windows").replace("/", "\\")).encode()

def common(data, root, sep):
    # A path below the run's folder becomes <ROOT> and "/" throughout its rest.
    def fix(m):
        return b"<ROOT>" + m.group(1).replace(sep, b"/")
    return re.sub(re.escape(root) + rb"([^\s\"']*)", fix, data, flags=re.IGNORECASE)

failed = 0
files = sorted(p.relative_to(work / "linux") for p in (work / "linux").rglob("*") if p.is_file())
others = sorted(p.relative_to(work / "windows") for p in (work / "windows").rglob("*") if p.is_file())
if files != others:
    print("different files written:", set(files) ^ set(others))
    failed += 1
for rel in files:
    a = common((work / "linux" / rel).read_bytes(), linux_root, b"/")
    path = work / "windows" / rel
    b = common(path.read_bytes(), windows_root, b"\\") if path.exists() else b""
    if a != b:
        failed += 1
        print(f"--- {rel} differs\nLinux:   {a[:400]!r}\nWindows: {b[:400]!r}")
print(f"tos-cli.exe against tos-cli: {len(files)} outputs compared, {failed} differ")
sys.exit(1 if failed else 0)
PY
