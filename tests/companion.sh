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

# Names of files and folders are bytes.
mkdir $'Tr\xe9sor' && cp "$sample" $'Tr\xe9sor/Caf\xe9.qrnm'
status 0 "$program" export -o $'Tr\xe9sor/\xff' $'Tr\xe9sor/Caf\xe9.qrnm'
[ -e $'Tr\xe9sor/\xff/Quorrin Map Caf\xe9.png' ] || fail "no picture of another encoding"

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

# Prints are sharp and small, in true size too, and the numbers of markers are text.
status 0 "$program" print -o large -- "$samples"/*.qrnm
for print in large/*.pdf; do
    [ "$(stat -c %s "$print")" -lt 3000000 ] || fail "$print has $(stat -c %s "$print") bytes"
done
pdftotext "large/The Old Mine Map.pdf" - | tr -d '\n \f' | grep -q 'H.*3' || fail "no numbers"
status 0 "$program" print --square 60mm -o large/true "$sample"
status 0 "$program" print --what sheet --square 25mm -o large/true "$sample"
for print in large/*.pdf large/true/*.pdf; do
    lowest=$(pdfimages -list "$print" | awk 'NR > 2 {print $13; print $14}' | sort -n | head -n 1)
    [ "${lowest:-0}" -ge 260 ] || fail "$print has ${lowest:-no} pixels an inch"
done

# Thumbnails of what lies in folders, good or damaged, quick and small.
for size in 16 1024; do
    status 0 "$program" thumbnail --size $size -o one.png "$sample"
    file one.png | grep -q "PNG image data, $size x\|PNG image data, [0-9]* x $size," || fail "no thumbnail of $size"
done
printf '\376%.0s' {1..100000} >marks
{ head -c 50 "$sample"; head -c 1000000 /dev/urandom; } >noise
head -c $(($(stat -c %s "$sample") / 3)) "$sample" >third
for damaged in letter.qrnm empty.qrnm marks noise third; do
    # The sanitizers claim more addresses than any limit allows.
    got=0
    (grep -q __asan_init "$program" || ulimit -v 2000000 -t 5; "$program" thumbnail -o none.png "$damaged" 2>err) || got=$?
    [ "$got" = 1 ] || fail "status $got of $damaged"
    [ ! -e none.png ] || fail "a thumbnail of $damaged"
done

# A worker that dies takes one map with it.
"$program" export --set --scale 8 --jobs 1 -o dead "$sample" 2>err &
while kill -0 $! 2>/dev/null; do
    for process in /proc/[0-9]*/stat; do
        { read -r worker _ _ parent _ <"$process"; } 2>/dev/null || continue
        [ "$parent" != $! ] || { kill -KILL "$worker" && break 2; }
    done
done
got=0
wait $! || got=$?
[ "$got" = 1 ] || fail "status $got when a worker dies"
grep -qx "$sample: The work on this map ended unexpectedly." err || fail "no word of the dead worker: $(cat err)"

# Wrong usage.
status 2 "$program"
status 2 "$program" export
while read -r line; do
    status 2 "$program" $line "$sample"
    [ "$(wc -l <err)" = 2 ] || fail "of $line it says: $(cat err)"
    grep -q -- --help err || fail "no hint"
done <<'END'
draw
upgrade
upgrade -o x --cell 70
export --jobs none
export --jobs 0
export --jobs 257
export --scale 0
export --scale 9
export --frobnicate
export --board
export --cell 70
export --board --cell 19
export --board --cell 70 --scale 2
sheet --scale 2
sheet --landscape
sheet --cell 70
print --what picture
print --paper Napkin
print --copies 0
print --copies 1000
print --board
print --bw
print --markers
print --what script --square 1in
print --square 10cm
print --square inf
print --square 4mm
print --square 101mm
print --what sheet --square 90mm
print --what sheet --square 1in --board
vtt --board
vtt --square 1in
vtt --cell 513
thumbnail
thumbnail -o x --jobs 2
thumbnail -o x --size 15
thumbnail -o x --size 1025
thumbnail -o x another.qrnm
END
status 0 "$program" export --jobs 256 --scale 1 -o limits "$sample"
status 0 "$program" print --square 5mm --copies 999 --what sheet -o limits "$sample"
status 0 "$program" --help
status 0 "$program" --version
