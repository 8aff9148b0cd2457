#!/usr/bin/env bash
# What macutils and Perl's Convert::BinHex write, extract restores byte for byte.
. "$(dirname "$0")/support.bash"

# restored SOURCE NAME FINDER: extracts it, and compares with NAME.data, NAME.rsrc and the Finder information.
restored() {
    rm -rf out
    mkdir out
    run extract -o out "$1"
    expect "$1" 0 "extracted $1 -> out/$2"
    same_bytes "$1: data fork" "$2.data" "out/$2"
    mac_file fork "out/._$2" >restored.rsrc
    same_bytes "$1: resource fork" "$2.rsrc" restored.rsrc
    same "$1: Finder information" "$3" "$(mac_file finder "out/._$2")"
}

for lengths in "0 0" "1 0" "0 1" "127 128" "129 127" "5000 700" "65536 65537" "1000003 3000"; do
    set -- $lengths
    mac_file info Test "$1" "$2" APPL MOSS 2000
    # Its own wording of the first line is not the format's.
    binhex Test.info | sed '1s/.*/(This file must be converted with BinHex 4.0)/' >macutils.hqx
    restored macutils.hqx Test "APPL MOSS 0000"
    # macsave clears a Finder flag that these files do not have, without mending the CRC.
    macstream Test.info | macsave -b
    restored Test.bin Test "APPL MOSS 2000"
    mac_file binhex Test "$1" "$2" APPL MOSS 2000 >perl.hqx
    restored perl.hqx Test "APPL MOSS 0000"
    for version in 1 2 3; do
        mac_file macbinary $version Test "$1" "$2" APPL MOSS 2000 >version$version.bin
        restored version$version.bin Test "APPL MOSS 2000"
    done
done

# Packed and extracted, a file is what it was.
mac_file make "Mein Brief" 3000 500 TEXT ttxt 0140
cp "Mein Brief" "Mein Brief.data"
mac_file fork "._Mein Brief" >"Mein Brief.rsrc"
run pack "Mein Brief"
restored "Mein Brief.bin" "Mein Brief" "TEXT ttxt 0140"
