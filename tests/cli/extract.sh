#!/usr/bin/env bash
# The extract command as its users meet it.
. "$(dirname "$0")/support.bash"

mac_file macbinary 2 Eins 300 20 TEXT ttxt 0 >one.bin
mac_file binhex Zwei 300 20 TEXT ttxt 0 >two.hqx
mac_file macbinary 2 $'Caf\x8e / \xc4' 10 0 TEXT ttxt 0 >odd.bin
mkdir out
run extract -o out one.bin two.hqx odd.bin
expect "batch" 0 $'extracted one.bin -> out/Eins\nextracted two.hqx -> out/Zwei\nextracted odd.bin -> out/Café : ƒ'
[ -e "out/Café : ƒ" ] && [ -e out/._Eins ] || fail "batch: $(ls -A out)"

# Replacing.
echo old >out/Eins
run extract -o out one.bin
expect "exists" 1 "" "tidewell: one.bin: error 80: out/Eins exists*"
run extract --replace=no -o out one.bin
same "kept" "0 old" "$status $(cat out/Eins)"
run extract --replace=yes -o out one.bin
same "replaced: size" 300 "$(stat -c %s out/Eins)"
cp one.bin again.bin
run extract --replace=yes -o out one.bin again.bin
expect "same name" 1 "extracted one.bin -> out/Eins" \
    "tidewell: again.bin: error 32: out/Eins was written a moment ago*"

# A Mac file never takes the place of what it comes from, nor of another source.
mac_file macbinary 2 two.hqx 10 10 TEXT ttxt 0 >trap.bin
cp two.hqx before
run extract --replace=yes trap.bin two.hqx
[[ $messages == "tidewell: trap.bin: error 32: "* ]] || fail "another source: $messages"
same_bytes "another source" two.hqx before

# Damage: its code, and nothing left.
head -c 500 one.bin >short.bin
tr T U <one.bin >damaged.bin
head -c 300 two.hqx >short.hqx
echo text >none.hqx
cp one.bin one.txt
: >empty.bin
: >empty.hqx
for bad in "38 short.bin" "23 damaged.bin" "38 short.hqx" "13 none.hqx" "13 one.txt" "2 missing.bin" \
    "38 empty.bin" "13 empty.hqx"; do
    rm -rf out && mkdir out
    run extract -o out "${bad#* }"
    expect "$bad" 1 "" "tidewell: ${bad#* }: error ${bad% *}: *"
    [ -z "$(ls -A out)" ] || fail "$bad: left behind $(ls -A out)"
done

# Names that would leave the folder, or reach what belongs to other files.
mkdir -p jail/in
for name in '..' '.' '._x' ':' '/' '../x'; do
    perl -e 'my ($n) = @ARGV; print pack("CCa63a4a4", 0, length $n, $n, "TEXT", "ttxt"), "\0" x 55' "$name" >hostile.bin
    run extract -o jail/in hostile.bin
done
same "nothing leaves the folder" "in" "$(ls -A jail)"
