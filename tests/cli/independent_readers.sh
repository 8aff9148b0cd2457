#!/usr/bin/env bash
# What pack writes, unar and macunpack unpack to the same forks, name, type and creator.
. "$(dirname "$0")/support.bash"

# check NAME DATA_LENGTH RESOURCE_LENGTH MAC_NAME: packs one file and unpacks it by both tools. The Mac name
# is its bytes in the Mac character set.
check() {
    local name=$1 data=$2 resource=$3 mac_name=$4
    rm -rf source packed by_unar by_macunpack
    mkdir source packed by_unar by_macunpack
    mac_file make "source/$name" "$data" "$resource" APPL MOSS 2400
    mac_file fork "source/._$name" >fork
    run pack -o packed "source/$name"
    local output=packed/$name.bin
    expect "$name" 0 "packed source/$name -> $output"

    unar -q -D -e macroman -k hidden -o by_unar "$output"
    # It writes nothing for an empty fork.
    [ "$data" = 0 ] || same_bytes "$name: unar's data fork" "source/$name" "by_unar/$name"
    [ "$resource" = 0 ] || mac_file fork "by_unar/._$name" >unpacked
    [ "$resource" = 0 ] || same_bytes "$name: unar's resource fork" fork unpacked
    lsar -j "$output" >listing
    for field in "FileType\": 1095782476" "FileCreator\": 1297044307" "FinderFlags\": 9216"; do
        grep -q "XAD$field" listing || fail "$name: unar's $field"
    done

    # macunpack makes up its own file names, and writes nothing for an empty fork.
    (cd by_macunpack && macunpack -3 "../$output" >/dev/null)
    local base
    base=$(echo by_macunpack/*.info)
    base=${base%.info}
    touch "$base.data" "$base.rsrc"
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
check "A name of thirty-one characters" 10 10 "A name of thirty-one characters"
check "Café ƒ" 10 10 $'Caf\x8e \xc4'
