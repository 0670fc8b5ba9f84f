#!/bin/sh
# Stamps the installer of every product: scripts/stamp_all.sh [INSTALLER.exe [FOLDER]]
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
installer=${1:-$root/build/release/installer.exe}
folder=${2:-$root/build/products}
stamp=$root/build/tools/stamp

mkdir -p "$folder"
products=$("$stamp" --list)
echo "$products" | while read -r code name; do
    "$stamp" "$installer" "$code" "$name" "$folder/install-$code.exe"
    echo "install-$code.exe  $name"
done
