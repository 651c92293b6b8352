#!/usr/bin/env bash
# Sets the machine up, builds, makes two installations in a fresh folder, and carries the samples through them:
# installed from folders, edited, committed, packed, and installed again on the second installation.
# Usage: scripts/demo.sh [folder]   (a new folder below the system's temporary folder without one)
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
scripts/build.sh release

if [ $# -gt 0 ]; then
  mkdir -p "$1"
  demo=$(cd "$1" && pwd)
else
  demo=$(mktemp -d)
fi
samples=$PWD/samples
cmake --install build/release --prefix "$demo/first" >/dev/null
cp -r "$demo/first" "$demo/second"
export MORVEX_PRODUCTS=$demo/products.txt
cd "$demo"

# Shows a command, runs it, and checks how it ends.
run() {
  local expected=0
  if [ "$1" = --fails ]; then expected=255; shift; fi
  printf '\n$'; printf ' %q' "$@"; echo
  local code=0
  "$@" || code=$?
  if [ "$code" -ne "$expected" ]; then
    echo "The command ended with $code, and not with $expected." >&2
    exit 1
  fi
}
first=first/bin/MorvexUtil
second=second/bin/MorvexUtil
loco='<kuid:523841:1007>'
crane='<kuid2:523841:1013:1>'

echo "== The first installation: assets from folders"
run $first version
mkdir downloads
cp -r "$samples"/*/ downloads
rm -r downloads/faulty downloads/make_meshes
run $first installfrompath "$demo/downloads"
run $first status "$loco"
for config in downloads/*/config.txt; do
  kuid=$(grep -aoiE '<kuid2?:[0-9:]+>' "$config" | sed -n 1p)
  kuids+=("$kuid")
  run $first commit "$kuid"
done
run $first status "$loco"
run $first searchbycategory "tr;loc|scen;-sy"
run $first authors

echo
echo "== An edit: open, change a file, commit"
run $first edit "$crane"
opened=$(echo first/editing/*)
printf 'Painted green in the spring.\r\n' > "$opened/readme.txt"
run $first status "$crane"
run $first commit "$crane"
run $first printconfig "$crane"
run $first edit "$loco"
run $first revert "$loco"

echo
echo "== A faulty asset: the last letter of its status tells"
faulty='<kuid:523841:2013>'
run $first installfrompath "$samples/faulty/below_zero"
run $first commit "$faulty"
run $first status "$faulty"
run $first delete "$faulty"

echo
echo "== A package, and the second installation"
run $first createcdp "$demo/valley.cdp" "${kuids[@]}"
run $second installcdp "$demo/valley.cdp"
run --fails $second installcdp "$demo/valley.cdp"
run $second status "$loco"
run $second status "$crane"

echo
echo "== Keywords, new identities, a file of lines"
run $second backupkeywords
run $second importkeywords
run $second generatekuid
printf 'version\r\nstatus "%s"\r\n' "$loco" > second/bin/lines.txt
run $second @lines.txt
run $second delete "$loco"
run --fails $second status "$loco"

echo
echo "== What lies on the disk now"
(cd second && find . -type f -not -path './data/*' -not -path './bin/QELData/*' | sort | sed -n '1,40p')
echo "... $(find second/local -type f | wc -l) files of assets in $demo/second/local"
echo
echo "The package: $(stat -c %s valley.cdp) bytes. Both installations stay in $demo."
