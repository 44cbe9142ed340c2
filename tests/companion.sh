#!/usr/bin/env bash
# Runs the built companion on real files: usage: companion.sh PROGRAM SAMPLES
set -euo pipefail
program=$1
samples=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

fail() { echo "companion: $*" >&2; exit 1; }
status() { local wanted=$1 got=0; shift; "$@" >out 2>err || got=$?; [ "$got" = "$wanted" ] || fail "status $got instead of $wanted of $*: $(cat err)"; }

cp "$samples"/*.qrnm .
sample=$(ls -- *.qrnm | head -n 1)
name=${sample%.qrnm}

# Pictures of every sample, and nothing else in the folder.
status 0 "$program" export --set -o pictures -- *.qrnm
[ "$(ls -A pictures | wc -l)" = "$((4 * $(ls -- *.qrnm | wc -l)))" ] || fail "not four pictures a map"
file=$(printf 'pictures/Quorrin Map %s DM BW.png' "$name")
[ "$(head -c 4 "$file" | tail -c 3)" = PNG ] || fail "no PNG"

# A map's pictures are the same whatever the process drew before.
for map in *.qrnm; do
    status 0 "$program" export --set -o alone "$map"
done
status 0 "$program" export --set --jobs 1 -o together -- *.qrnm
diff -r alone together || fail "pictures depend on the maps before"
[ "$(printf 'pictures/Quorrin Map %s Color.png' "$name" | xargs -d '\n' file | grep -c '756 x 576\|576 x 756')" = 1 ] || fail "no plain size"
status 0 "$program" export --scale 3 -o sharp "$sample"
file "sharp/Quorrin Map $name.png" | grep -q '2268 x 1728\|1728 x 2268' || fail "not three times as sharp"

# The newest form of the newest form is itself, byte for byte.
status 0 "$program" upgrade -o new -- *.qrnm
status 0 "$program" upgrade -o newer new/*.qrnm
diff -r new newer || fail "a second upgrade changes the map"
cp "$sample" Dark.Cave.qrnm
status 0 "$program" upgrade -o dotted Dark.Cave.qrnm
[ -e dotted/Dark.Cave.qrnm ] || fail "a dotted name is cut"
rm Dark.Cave.qrnm

# The sheet of each map, and prints of one page or as many as there are copies.
status 0 "$program" sheet -o sheets -- *.qrnm
file=$(printf 'sheets/%s Character Sheet.jpg' "$name")
[ "$(head -c 3 "$file" | od -An -tx1)" = " ff d8 ff" ] || fail "no JPEG"
printed() { pdfinfo "$1" | sed -n "s/^$2: *//p"; }
status 0 "$program" print --paper Letter --copies 3 -o prints "$sample"
[ "$(printed "prints/$name Map.pdf" Pages)" = 3 ] || fail "not three copies of the map"
[ "$(printed "prints/$name Map.pdf" 'Page size')" = "612 x 792 pts (letter)" ] || fail "no Letter"
status 0 "$program" print --what sheet --landscape -o prints "$sample"
[ "$(printed "prints/$name Character Sheet.pdf" 'Page size')" = "842 x 595 pts (A4)" ] || fail "no landscape A4"
status 0 "$program" print --what script -o once "$sample"
status 0 "$program" print --what script --copies 3 -o prints "$sample"
[ "$(printed "prints/$name Script.pdf" Pages)" = "$(printed "once/$name Script.pdf" Pages)" ] ||
    fail "not one set of the script"
pdftotext -layout "prints/$name Script.pdf" - | grep -qx 'Monster:' || fail "the script is not printed as text"
[ "$(ls -A prints | wc -l)" = 3 ] || fail "something else was printed"

# A bad map is told and skipped, nothing is written for it, and the others are done.
printf 'a letter' >letter.qrnm
: >empty.qrnm
status 1 "$program" export --set -o some letter.qrnm "$sample" empty.qrnm missing.qrnm
grep -qx 'letter.qrnm: Error opening saved file.' err || fail "no word of the letter: $(cat err)"
grep -qx 'empty.qrnm: Error opening file.' err || fail "no word of the empty file"
grep -q '^missing.qrnm: ' err || fail "no word of the missing file"
[ "$(ls -A some | wc -l)" = 4 ] || fail "something was written for a bad map"

# A picture that cannot be read is told, whatever the libraries remark, and the rest is done; names are bytes.
broken=$(printf 'Caf\351.qrnm')
LC_ALL=C sed 's/\xbb/\xbbnone/3' "$sample" >"$broken"
for command in upgrade export; do
    status 0 "$program" $command -o warned "$broken"
    grep -axq "$broken: The drawing cannot be read and is left out. Of these characters the picture cannot be read: 3." err && [ "$(wc -l <err)" = 1 ] || fail "no warning: $(cat err)"
done
[ -e "warned/$broken" ] && [ -e "warned/Quorrin Map ${broken%.qrnm}.png" ] || fail "the name is another"
status 0 "$program" print -o warned "$broken"
[ -e "warned/${broken%.qrnm} Map.pdf" ] || fail "no print of that name"

# What would be lost is refused.
cp "$sample" before
status 1 "$program" upgrade -o . "$sample"
cmp -s "$sample" before || fail "the input was replaced"
mkdir twin && cp "$sample" twin
status 2 "$program" export -o both "$sample" "twin/$sample"
[ ! -e both ] || fail "refused work was begun"
mkdir -p "full/Quorrin Map $name.png"
status 1 "$program" export -o full "$sample"
[ "$(ls -A full | wc -l)" = 1 ] || fail "rests of refused work are left"
# A set of which one cannot be put in place leaves all that was there, and nothing new.
for kept in Color "DM Color" BW "DM BW"; do
    rm -rf half && mkdir -p "half/Quorrin Map $name $kept.png"
    for other in Color "DM Color" BW; do [ -e "half/Quorrin Map $name $other.png" ] || echo "$other" >"half/Quorrin Map $name $other.png"; done
    rm -rf half-before && cp -r half half-before
    status 1 "$program" export --set -o half "$sample"
    diff -r half half-before || fail "half of a set was put in place"
done

# Ended by a signal, it leaves whole results or none, nothing begun and no worker.
mkdir many && for copy in {1..120}; do ln before "many/map $copy.qrnm"; done
for signal in TERM:143 INT:130; do
    rm -rf new
    got=0
    timeout --preserve-status -s "${signal%:*}" 0.5 "$program" export --set --jobs 2 -o new/pictures many/*.qrnm || got=$?
    [ "$got" = "${signal#*:}" ] || fail "status $got after a signal"
    [ -e new ] || continue
    left=$(ls -A new/pictures)
    [ "$(($(wc -l <<<"$left") % 4))" = 0 ] || fail "half of a result"
    [ "${left:0:1}" != . ] || fail "something begun is left"
    sleep 0.3
    [ "$(ls -A new/pictures)" = "$left" ] || fail "a worker is left"
done

# Wrong usage.
status 2 "$program"
status 2 "$program" export
status 2 "$program" upgrade "$sample"
status 2 "$program" export --jobs none "$sample"
status 2 "$program" export --scale 9 "$sample"
status 2 "$program" sheet --scale 2 "$sample"
status 2 "$program" print --what picture "$sample"
status 2 "$program" print --paper Napkin "$sample"
status 2 "$program" print --copies 0 "$sample"
status 2 "$program" print --copies 1000 "$sample"
status 2 "$program" sheet --landscape "$sample"
status 2 "$program" export --frobnicate "$sample"
grep -q -- --help err || fail "no hint"
status 0 "$program" --help
status 0 "$program" --version
