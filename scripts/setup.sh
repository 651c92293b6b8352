#!/usr/bin/env bash
# Installs what a build, the tests and the demo need and the machine lacks. Debian 12, as root or with sudo.
# Usage: scripts/setup.sh [extra packages ...]
set -euo pipefail

needed=(g++ cmake ninja-build python3 libzip-dev libjpeg62-turbo-dev libstb-dev libssl-dev zlib1g-dev libcli11-dev
        rapidjson-dev libgtest-dev zip unzip "$@")

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

# Servers among the packages are for the tests to start; none shall run by itself.
policy=/usr/sbin/policy-rc.d
if [ ! -e "$policy" ]; then
  printf '#!/bin/sh\nexit 101\n' | "${as_root[@]}" tee "$policy" >/dev/null
  "${as_root[@]}" chmod +x "$policy"
  trap '"${as_root[@]}" rm -f "$policy"' EXIT
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
