#!/usr/bin/env bash
# What pack writes, unar unpacks to the same forks, name, type and creator.
. "$(dirname "$0")/support.bash"

# check NAME DATA_LENGTH RESOURCE_LENGTH: packs a file and unpacks it.
check() {
    local name=$1 data=$2 resource=$3
    rm -rf source packed by_unar
    mkdir source packed by_unar
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
}

LC_ALL=C
for length in 0 1 127 128 129 65535 65536 65537 3000001; do
    check "Both forks" "$length" "$length"
    check "Data" "$length" 0
    check "Resource" 0 "$length"
done
check "A name of thirty-one characters" 10 10
check "Café ƒ" 10 10
