#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Shows what recode does with the sample texts, and the tour: show-samples.sh BUILD-DIR [MEBIBYTES]
# Fails if a text does not come back from a round trip as it was. MEBIBYTES is the size of the text
# on which the speed is measured, 64 unless given.
set -euo pipefail
export LC_ALL=C

build=${1:?usage: show-samples.sh BUILD-DIR [MEBIBYTES]}
mebibytes=${2:-64}
build=$(cd "$build" && pwd)
samples=$(cd "$(dirname "$0")" && pwd)/samples
recode=$build/examples/recode
cd "$samples"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

convert() { "$recode" -f "$1" -t "$2" "${@:3}"; }
first_bytes() { head -c 8 "$1" | od -An -v -tx1 | tr 'a-f' 'A-F' | sed 's/^ //'; }
size() { wc -c <"$1" | tr -d ' '; }

# The verdict on a file that should be the same as the other.
same() {
    if cmp -s "$1" "$2"; then
        verdict=identical
    else
        verdict=DIFFERENT
        failures=$((failures + 1))
    fi
}

echo "UTF-8 to CESU-8 and back"
printf '  %-9s %5s  %6s  %-23s  %-9s  %s\n' sample UTF-8 CESU-8 'CESU-8 begins' back text
for file in *.utf-8.txt; do
    case $file in broken-*) continue ;; esac
    convert UTF-8 CESU-8 -o "$scratch/cesu" "$file"
    convert CESU-8 UTF-8 -o "$scratch/back" "$scratch/cesu"
    same "$file" "$scratch/back"
    printf '  %-9s %5s  %6s  %-23s  %-9s  %s\n' "${file%.utf-8.txt}" "$(size "$file")" \
        "$(size "$scratch/cesu")" "$(first_bytes "$scratch/cesu")" "$verdict" "$(head -n 1 "$file")"
done

echo
echo "ISO-8859-1 to UTF-8, and UTF-8 to ISO-8859-1"
printf '  %-9s %10s  %5s  %-23s  %-9s  %s\n' sample ISO-8859-1 UTF-8 'ISO-8859-1 begins' back text
for file in *.iso-8859-1.txt; do
    name=${file%.iso-8859-1.txt}
    convert ISO-8859-1 UTF-8 "$file" >"$scratch/utf8"
    convert UTF-8 ISO-8859-1 <"$scratch/utf8" >"$scratch/back"
    same "$file" "$scratch/back"
    printf '  %-9s %10s  %5s  %-23s  %-9s  %s\n' "$name" "$(size "$file")" "$(size "$scratch/utf8")" \
        "$(first_bytes "$file")" "$verdict" "$(head -n 1 "$scratch/utf8")"
done

echo
echo "Files of other sets to UTF-8, and back"
printf '  %-13s  %-9s %5s  %-23s  %-9s  %s\n' set sample bytes 'begins' back text
while read -r set name; do
    file=$name.$(echo "$set" | tr 'A-Z' 'a-z').txt
    convert "$set" UTF-8 -o "$scratch/utf8" "$file"
    convert UTF-8 "$set" -o "$scratch/back" "$scratch/utf8"
    same "$file" "$scratch/back"
    printf '  %-13s  %-9s %5s  %-23s  %-9s  %s\n' "$set" "$name" "$(size "$file")" \
        "$(first_bytes "$file")" "$verdict" "$(head -n 1 "$scratch/utf8")"
done <<'SETS'
Shift_JIS japanese
x-windows-949 korean
GB18030 chinese
GB18030 emoji
Big5-HKSCS cantonese
windows-1251 russian
windows-1253 greek
windows-1256 arabic
UTF-16LE hindi
SETS

echo
echo "UTF-8 to US-ASCII, replacing what has no counterpart"
for name in french greek japanese emoji; do
    printf '  %-9s %s\n' "$name" "$(convert UTF-8 US-ASCII --on-error replace "$name.utf-8.txt" | head -n 1)"
done

echo
echo "Bad input: broken-continuation.utf-8.txt, under each action"
for action in report replace ignore; do
    status=0
    text=$(convert UTF-8 UTF-8 --on-error "$action" broken-continuation.utf-8.txt \
        2>"$scratch/errors") || status=$?
    printf '  %-7s  exit %d  %s\n' "$action" "$status" "$text"
    sed 's/^/    /' "$scratch/errors"
done

echo
echo "recode --list"
"$recode" --list | sed 's/^/  /'

# Lines of all samples in a random order, the same in every run.
texts=()
for file in *.utf-8.txt; do
    case $file in broken-*) ;; *) texts+=("$file") ;; esac
done
awk -v bytes=$((mebibytes * 1048576)) '
    { line[NR] = $0; size[NR] = length($0) + 1 }
    END { srand(1)
          while (bytes > 0) { i = 1 + int(rand() * NR); print line[i]; bytes -= size[i] } }
    ' "${texts[@]}" >"$scratch/big"

# Converts a file and prints megabytes of input per second.
measure() {
    local start=${EPOCHREALTIME/./} end
    convert "$1" "$2" -o "$4" "$3"
    end=${EPOCHREALTIME/./}
    echo $(($(size "$3") / (end - start + 1)))
}

forth=$(measure UTF-8 CESU-8 "$scratch/big" "$scratch/cesu")
back=$(measure CESU-8 UTF-8 "$scratch/cesu" "$scratch/back")
same "$scratch/big" "$scratch/back"
echo
echo "Speed on $mebibytes MiB of mixed text: UTF-8 to CESU-8 $forth MB/s, back $back MB/s, $verdict"

if [ "$failures" -ne 0 ]; then
    echo "$failures round trips changed the text" >&2
    exit 1
fi

echo
"$build/examples/tour" ..
