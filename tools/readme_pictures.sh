#!/usr/bin/env bash
# Renews the pictures of the README: those of the help, which the build takes of the program's real windows, and samples.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build build --target help_pages quorrin-map-batch -- --quiet
mkdir -p docs/images
for name in window object-menu tab-walls character-editor drawing-editor map-color map-dm-color map-bw sheet; do
    cp "build/help/images/$name.png" docs/images/
done
for map in "Sunken Vault" "Cinder Isle"; do
    build/quorrin-map-batch export -o build/pictures "samples/$map.qrnm"
    name=${map,,}
    cp "build/pictures/Quorrin Map $map.png" "docs/images/${name// /-}.png"
done
