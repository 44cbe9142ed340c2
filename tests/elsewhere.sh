#!/usr/bin/env bash
# Has all of src compiled for Windows, but for what is written for POSIX alone. Qt and the libraries are not packaged for
# it, so their headers have to do, and nothing is linked: usage: elsewhere.sh COMPILER SOURCE ART QT_HEADERS
set -euo pipefail
compiler=$1
source=$2
art=$3
qt=$4
if [ ! -x "$compiler" ]; then
    echo "There is no cross compiler (package g++-mingw-w64-x86-64-posix)."
    exit 77
fi

# Alone in a folder, since this system's own headers must not be found.
libraries=$(mktemp -d)
trap 'rm -rf "$libraries"' EXIT
ln -s /usr/include/{libdeflate.h,turbojpeg.h,zstd.h,nlohmann} "$libraries"

headers=(-I "$source/src" -I "$art" -isystem "$libraries" -isystem "$qt")
for module in QtCore QtGui QtWidgets QtPrintSupport; do
    headers+=(-isystem "$qt/$module")
done
find "$source/src" -name '*.cpp' ! -name '*Posix.cpp' -print0 |
    xargs -0 -P "$(nproc)" -n 1 nice "$compiler" -std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Werror \
        '-DQUORRIN_VERSION=""' "${headers[@]}"
