#!/usr/bin/env bash
# Installs the build into a folder of its own, packs it and its sources, and holds both against the rules of the desktop:
# usage: packaging.sh BUILD
set -euo pipefail
build=$1
source=$(realpath "$(dirname "$0")/..")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

fail() { echo "packaging: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$folder/usr" >/dev/null
share=$folder/usr/share
id=org.quorrin.mapmaker
batch=$folder/usr/bin/quorrin-map-batch
version=$("$batch" --version)
version=${version##* }

# Every file is right by the tool of its own kind.
desktop-file-validate --no-hints "$share/applications/$id.desktop"
# Debian 12 does not know the element that newer software centres ask for.
remarks=$(appstreamcli validate --pedantic --no-net "$share/metainfo/$id.metainfo.xml" | grep '^[EWIP]:' | grep -v 'unknown-tag developer$' || true)
[ -z "$remarks" ] || fail "$remarks"
xmllint --noout "$share/metainfo/$id.metainfo.xml" "$share/mime/packages/$id.xml" "$share"/icons/hicolor/{scalable,symbolic}/*/*.svg
for page in quorrin-map-maker quorrin-map-batch; do
    faults=$(man --warnings -l "$share/man/man1/$page.1.gz" 2>&1 >"$page.txt"; zcat "$share/man/man1/$page.1.gz" | mandoc -T lint || true)
    [ -z "$faults" ] || fail "$page.1: $faults"
    zcat "$share/man/man1/$page.1.gz" | sed -n 1p | grep -F "$version" >/dev/null || fail "$page.1 is not of version $version"
done
bash -n "$share/bash-completion/completions/quorrin-map-batch"
grep -qF "<release version=\"$version\"" "$share/metainfo/$id.metainfo.xml" || fail "no release $version in the metainfo"
zcat "$share/doc/quorrin-map-maker/changelog.gz" | sed -n 1p | grep -F "($version)" >/dev/null || fail "no $version in the changelog"
zcat "$share/doc/quorrin-map-maker/NEWS.gz" | grep -F "## $version (" >/dev/null || fail "no $version in the news"

# The icons that the desktop entry and the file type name are there in their sizes.
for icon in "apps/$(sed -n 's/^Icon=//p' "$share/applications/$id.desktop")" mimetypes/application-x-quorrin-map; do
    for size in 16 22 24 32 48 64 128 256 512; do
        # The width and height of a PNG are its bytes 17 to 24.
        got=$(od -An -tu1 -j16 -N8 "$share/icons/hicolor/${size}x$size/$icon.png" | tr -s ' \n' ' ')
        wanted=" 0 0 $((size / 256)) $((size % 256))"
        [ "${got% }" = "$wanted$wanted" ] || fail "$icon is not $size pixels wide and high but $got"
    done
    scalable=$share/icons/hicolor/scalable/$icon.svg
    [ -s "$scalable" ] || fail "no scalable $icon"
    ! rsvg-convert -w 16 -h 16 "$scalable" | cmp -s - "$share/icons/hicolor/16x16/$icon.png" || fail "$icon is not drawn for 16 pixels"
done
# A desktop recolours a symbolic icon, so it has one colour.
symbolic=$share/icons/hicolor/symbolic/apps/$id-symbolic.svg
[ "$(grep -oE '(fill|stroke)="[^"]*"' "$symbolic" | sort -u | wc -l)" = 1 ] || fail "the symbolic icon is not of one colour"

# A map's file is known by its name, and its program is this one.
export XDG_DATA_DIRS=$share XDG_DATA_HOME=$folder/home HOME=$folder/home PATH=$folder/usr/bin:$PATH
update-mime-database "$share/mime"
update-desktop-database "$share/applications"
for map in cave.qrnm CAVE.QRNM cave.qrn; do
    echo 'a map' >"$map"
done
for map in cave.qrnm CAVE.QRNM; do
    gio info -a standard::content-type "$map" | grep 'application/x-quorrin-map$' >/dev/null || fail "$map is not known as a map"
done
! gio info -a standard::content-type cave.qrn | grep x-quorrin-map >/dev/null || fail "cave.qrn is taken for a map"
gio mime application/x-quorrin-map | grep "$id.desktop" >/dev/null || fail "no program for maps"

# What file managers call for the small picture of a map.
thumbnailer=$share/thumbnailers/$id.thumbnailer
grep -q '^MimeType=application/x-quorrin-map;$' "$thumbnailer" || fail "the thumbnailer is not for maps"
type -P "$(sed -n 's/^TryExec=//p' "$thumbnailer")" >/dev/null || fail "the thumbnailer's program is not installed"
call=$(sed -n 's/^Exec=//p' "$thumbnailer" | sed "s|%s|96|; s|%o|$folder/small.png|; s|%i|'$folder/one map.qrnm'|")
cp "$share/quorrin-map-maker/samples/The Last Lantern.qrnm" "one map.qrnm"
eval "$call" || fail "no thumbnail"
file small.png | grep 'PNG image data, 96 x 73,' >/dev/null || fail "the thumbnail is no picture of its size: $(file small.png)"

# Manual page and completion know every option that the companion tells of, and no other.
options() { grep -oE -- '(^|[^[:alnum:]-])--[a-z]+' "$1" | grep -oE -- '--[a-z]+' | sort -u; }
"$batch" --help >help.txt
diff <(options help.txt) <(options quorrin-map-batch.txt) || fail "help and manual page differ in their options"
diff <(options help.txt) <(options "$share/bash-completion/completions/quorrin-map-batch") ||
    fail "help and completion differ in their options"

set +u
. /usr/share/bash-completion/bash_completion
. "$share/bash-completion/completions/quorrin-map-batch"
mkdir -p deep/er
completes() { # completes "LINE" WORD...: what the last word of the line may become
    COMP_LINE=$1 COMP_POINT=${#1} COMPREPLY=()
    IFS=' ' read -ra COMP_WORDS <<<"$1"
    [ "${1% }" = "$1" ] || COMP_WORDS+=("")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    _quorrin_map_batch || true
    local got wanted
    got=$(printf '%s\n' "${COMPREPLY[@]}" | sort | tr '\n' ' ')
    wanted=$(printf '%s\n' "${@:2}" | sort | tr '\n' ' ')
    [ "$got" = "$wanted" ] || fail "\"$1\" is completed to $got, not $wanted"
}
completes 'quorrin-map-batch ' export sheet print vtt thumbnail upgrade
completes 'quorrin-map-batch export --s' --set --scale
completes 'quorrin-map-batch thumbnail --' --output --size
completes 'quorrin-map-batch sheet --' --output --jobs
completes 'quorrin-map-batch print --what s' script sheet
completes 'quorrin-map-batch export -o d' deep
completes 'quorrin-map-batch export c' cave.qrnm

# The package holds the same files, and the packager found what the programs need.
cpack --config "$build/CPackConfig.cmake" -B "$folder" >cpack.txt 2>&1 || fail "$(cat cpack.txt)"
package=$(ls "$folder"/*.deb)
dpkg-deb --fsys-tarfile "$package" | tar -t | grep -v '/$' | sort >packed.txt
(cd "$folder" && find ./usr -type f ! -name mimeinfo.cache ! -path './usr/share/mime/*' && echo ./usr/share/mime/packages/$id.xml) |
    sort >installed.txt
diff installed.txt packed.txt || fail "the package does not hold what is installed"
[ "$(dpkg-deb -f "$package" Version)" = "$version" ] || fail "the package is not of version $version"
for needed in fonts-dejavu-core libqt6widgets6 libqt6printsupport6; do
    dpkg-deb -f "$package" Depends | grep -w "$needed" >/dev/null || fail "the package does not ask for $needed"
done

# The source archive holds what git holds, and each of its files has a licence.
cpack --config "$build/CPackSourceConfig.cmake" -B "$folder/archive" >cpack.txt 2>&1 || fail "$(cat cpack.txt)"
mkdir tree
tar -xf "$folder"/archive/*.tar.xz --strip-components=1 -C tree
if [ -e "$source/.git" ] && type -P git >/dev/null; then
    diff <(git -c safe.directory='*' -c core.quotePath=off -C "$source" ls-files -co --exclude-standard | sort) <(find tree -type f -printf '%P\n' | sort) ||
        fail "the source archive does not hold what git holds"
fi
# The tool of Debian 12 reads the same facts in an older form.
mkdir tree/.reuse
python3 - tree/REUSE.toml >tree/.reuse/dep5 <<'END'
import sys, tomllib
print("Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/")
for annotation in tomllib.load(open(sys.argv[1], "rb"))["annotations"]:
    paths = annotation["path"] if isinstance(annotation["path"], list) else [annotation["path"]]
    print("\nFiles:", " ".join(path.replace("**", "*") for path in paths))
    print("Copyright:", annotation["SPDX-FileCopyrightText"])
    print("License:", annotation["SPDX-License-Identifier"])
END
reuse --root tree lint >reuse.txt 2>&1 || fail "$(cat reuse.txt)"

# Debian's own build asks for the packages that ./run installs.
for package in $(awk '/^\[/ { wanted = /run/; next } wanted && /^[^#]/' "$source/packages.txt"); do
    [ "$package" = g++ ] || grep -q "^ $package,$" "$source/packaging/debian/control" || fail "no $package in debian/control"
done
