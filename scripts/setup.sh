#!/usr/bin/env bash
# Installs what a build, the tests and the demo need and the machine lacks. Debian 12, as root or with sudo.
# Usage: scripts/setup.sh [extra packages ...]
set -euo pipefail

needed=(g++ cmake ninja-build python3 libzip-dev libjpeg62-turbo-dev libstb-dev libgtest-dev zip unzip "$@")

missing=()
for package in "${needed[@]}"; do
  state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$state" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Please install: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
