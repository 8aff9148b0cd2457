#!/usr/bin/env bash
# What pack writes, unar and macunpack unpack to the same forks, name, type and creator.
. "$(dirname "$0")/support.bash"

# number KEY: of the first file in lsar's listing.
number() { sed -n "s/.*\"$1\": \([0-9]*\).*/\1/p" listing | head -n 1; }

# check NAME DATA_LENGTH RESOURCE_LENGTH MAC_NAME: packs one file and unpacks it by both tools. The Mac name
# is its bytes in the Mac character set.
check() {
    local name=$1 data=$2 resource=$3 mac_name=$4
    rm -rf source packed by_unar by_macunpack
    mkdir source packed by_unar by_macunpack
    mac_file make "source/$name" "$data" "$resource" APPL MOSS 2400
    run pack -o packed "source/$name"
    same "$name: status" 0 "$status"
    same "$name: messages" "" "$messages"
    local output=packed/${name%.*}.bin
    same "$name: line" "packed source/$name -> $output" "$out"
    same "$name: name" "$mac_name" "$(dd if="$output" bs=1 skip=2 count="${#mac_name}" status=none)"

    mac_file fork "source/._$name" >fork
    unar -q -D -e macroman -k hidden -o by_unar "$output"
    [ "$data" != 0 ] || touch "by_unar/$name" # it writes none for an empty data fork
    same_bytes "$name: unar's data fork" "source/$name" "by_unar/$name"
    # unar writes no AppleDouble file for an empty resource fork.
    : >unpacked
    [ "$resource" = 0 ] || mac_file fork "by_unar/._$name" >unpacked
    same_bytes "$name: unar's resource fork" fork unpacked
    lsar -j "$output" >listing
    same "$name: unar's type" 1095782476 "$(number XADFileType)"
    same "$name: unar's creator" 1297044307 "$(number XADFileCreator)"
    same "$name: unar's flags" 9216 "$(number XADFinderFlags)"

    # macunpack makes up its own file names.
    (cd by_macunpack && macunpack -3 "../$output" >/dev/null)
    local unpacked=(by_macunpack/*.info)
    same "$name: macunpack's files" 1 "${#unpacked[@]}"
    local base=${unpacked[0]%.info}
    touch "$base.data" "$base.rsrc" # it writes none for an empty fork
    same_bytes "$name: macunpack's data fork" "source/$name" "$base.data"
    same_bytes "$name: macunpack's resource fork" fork "$base.rsrc"
    same "$name: macunpack's name" "$mac_name" "$(dd if="$base.info" bs=1 skip=2 count="${#mac_name}" status=none)"
    same "$name: macunpack's type" APPLMOSS "$(dd if="$base.info" bs=1 skip=65 count=8 status=none)"
}

LC_ALL=C
for length in 0 1 127 128 129 65535 65536 65537 3000001; do
    check "Both forks" "$length" "$length" "Both forks"
    check "Data" "$length" 0 "Data"
    check "Resource" 0 "$length" "Resource"
done
check a 10 10 a
check "A name of thirty-one characters" 10 10 "A name of thirty-one characters"
check "Café ƒ" 10 10 $'Caf\x8e \xc4'
