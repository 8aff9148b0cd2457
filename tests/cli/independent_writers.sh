#!/usr/bin/env bash
# What macutils and Perl's Convert::BinHex write, extract restores byte for byte, as unar does.
. "$(dirname "$0")/support.bash"

# restored SOURCE NAME: extracts it by the command and by unar, and compares both with original.data,
# original.rsrc and the type and creator that all of them have.
restored() {
    local source=$1 name=$2
    rm -rf out by_unar
    mkdir out by_unar
    run extract -o out "$source"
    same "$source: messages" "" "$messages"
    same "$source: line" "extracted $source -> out/$name" "$out"
    same_bytes "$source: data fork" original.data "out/$name"
    mac_file fork "out/._$name" >restored.rsrc
    same_bytes "$source: resource fork" original.rsrc restored.rsrc
    local finder
    finder=$(mac_file finder "out/._$name")
    same "$source: type and creator" "APPL MOSS" "${finder% *}"

    # Version 1 has too little for unar to know it by.
    [ "$source" != version1.bin ] || return 0
    unar -q -D -k hidden -o by_unar "$source" >/dev/null
    [ ! -s original.data ] || same_bytes "$source: unar's data fork" "by_unar/$name" "out/$name"
    [ ! -s original.rsrc ] || mac_file fork "by_unar/._$name" >unpacked.rsrc
    [ ! -s original.rsrc ] || same_bytes "$source: unar's resource fork" unpacked.rsrc restored.rsrc
    lsar -j "$source" >listing
    grep -q '"XADFileType": 1095782476' listing || fail "$source: unar's type"
    grep -q '"XADFileCreator": 1297044307' listing || fail "$source: unar's creator"
}

for lengths in "0 0" "1 0" "0 1" "127 128" "129 127" "5000 700" "65536 65537" "1000003 3000"; do
    set -- $lengths
    mac_file info Test "$1" "$2" APPL MOSS 2000
    cp Test.data original.data
    cp Test.rsrc original.rsrc
    # Its own wording of the first line is not the format's.
    binhex Test.info | sed '1s/.*/(This file must be converted with BinHex 4.0)/' >macutils.hqx
    restored macutils.hqx Test
    # macsave clears a Finder flag that these files do not have, without mending the CRC.
    macstream Test.info | macsave -b
    restored Test.bin Test
    mac_file binhex Test "$1" "$2" APPL MOSS 2000 >perl.hqx
    restored perl.hqx Test
    for version in 1 2 3; do
        mac_file macbinary $version Test "$1" "$2" APPL MOSS 2000 >version$version.bin
        restored version$version.bin Test
        same "MacBinary $version: flags" 2000 "$(mac_file finder out/._Test | sed 's/.* //')"
    done
done

# Packed and extracted, a file is what it was.
mac_file make "Mein Brief" 3000 500 TEXT ttxt 0140
cp "._Mein Brief" before
run pack "Mein Brief"
run extract -o out "Mein Brief.bin"
same_bytes "round trip: data fork" "Mein Brief" "out/Mein Brief"
same "round trip: Finder information" "$(mac_file finder before)" "$(mac_file finder "out/._Mein Brief")"
mac_file fork before >original.rsrc
mac_file fork "out/._Mein Brief" >restored.rsrc
same_bytes "round trip: resource fork" original.rsrc restored.rsrc
