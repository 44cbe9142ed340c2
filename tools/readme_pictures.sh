#!/usr/bin/env bash
# Renews the pictures of the README from those of the help, which the build takes of the program's real windows.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build build --target help_pages -- --quiet
mkdir -p docs/images
for name in window object-menu tab-walls character-editor drawing-editor map-color map-dm-color map-bw sheet; do
    cp "build/help/images/$name.png" docs/images/
done
