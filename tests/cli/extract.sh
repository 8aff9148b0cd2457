#!/usr/bin/env bash
# The extract command as its users meet it.
. "$(dirname "$0")/support.bash"

mac_file macbinary 2 Eins 300 20 TEXT ttxt 0 >one.bin
mac_file binhex Zwei 300 20 TEXT ttxt 0 >two.hqx
mac_file macbinary 2 $'Caf\x8e / \xc4' 10 0 TEXT ttxt 0 >odd.bin
mkdir out
run extract -o out one.bin two.hqx odd.bin
same "batch" $'extracted one.bin -> out/Eins\nextracted two.hqx -> out/Zwei\nextracted odd.bin -> out/Café : ƒ' "$out"
same "batch: status" 0 "$status"
[ -e "out/Café : ƒ" ] && [ -e out/._Eins ] || fail "batch: $(ls -A out)"

# Replacing.
echo old >out/Eins
run extract -o out one.bin
same "exists: status" 1 "$status"
[[ $messages == "tidewell: one.bin: error 80: out/Eins exists"* ]] || fail "exists: $messages"
run extract --replace=no -o out one.bin
same "kept: status" 0 "$status"
same "kept" "old" "$(cat out/Eins)"
run extract --replace=yes -o out one.bin
same "replaced: size" 300 "$(stat -c %s out/Eins)"
cp one.bin again.bin
rm -rf out/*
run extract --replace=yes -o out one.bin again.bin
[[ $messages == "tidewell: again.bin: error 32: out/Eins was written a moment ago"* ]] || fail "same name: $messages"

# A Mac file never takes the place of what it comes from, nor of another source.
mac_file macbinary 2 two.hqx 10 10 TEXT ttxt 0 >trap.bin
cp two.hqx before
run extract --replace=yes trap.bin two.hqx
[[ $messages == "tidewell: trap.bin: error 32: "* ]] || fail "another source: $messages"
same_bytes "another source" two.hqx before

# Damage: its code, and nothing left.
error() {
    rm -rf out && mkdir out
    run extract -o out "$2"
    same "$2: status" 1 "$status"
    [[ $messages == "tidewell: $2: error $1: "* ]] || fail "$2: expected error $1, got $messages"
    [ -z "$(ls -A out)" ] || fail "$2: left behind $(ls -A out)"
}
head -c 500 one.bin >short.bin
error 38 short.bin
tr T U <one.bin >damaged.bin
error 23 damaged.bin
head -c 300 two.hqx >short.hqx
error 38 short.hqx
echo text >none.hqx
error 13 none.hqx
cp one.bin one.txt
error 13 one.txt
error 2 missing.bin
: >empty.bin
error 38 empty.bin
: >empty.hqx
error 13 empty.hqx
# Names that would leave the folder, or reach what belongs to other files.
for name in .. . ._one /; do
    mac_file macbinary 2 "$name" 10 10 TEXT ttxt 0 >hostile.bin || true
done
rm -rf jail && mkdir -p jail/in
for name in '..' '.' '._x' ':' ; do
    perl -e 'my ($n) = @ARGV; print pack("CCa63a4a4", 0, length $n, $n, "TEXT", "ttxt"), "\0" x 55' "$name" >hostile.bin
    run extract -o jail/in hostile.bin
done
same "nothing leaves the folder" "in" "$(ls -A jail)"
