#!/usr/bin/env bash
# The resources command, on forks that another program wrote, held against what that program wrote.
. "$(dirname "$0")/support.bash"

for wrong in "" "a b" "--json --raw a" "--raw a" "--hex --type=TEXT a" "--raw --id=1 a" "--type=TEXT --id=1 a" "--id=1 a" \
    "--json --type=TEXT a" "--fork a" "--json -o b a" "-o b a" "--png=b -o c a" "--png= a" "--raw --type= --id=1 a" \
    "--raw --type=TEXT --id=32768 a" "--raw --type=TEXT --id=1x a" "--raw --type=TEXT --id= a" "--fast a" "-o" "--fork -o b a -o"; do
    run resources $wrong
    expect "'$wrong'" 2 "" "*usage:*"
done
for type in ABC ABCDE 0x1234567 0x1234567g 日abc; do
    run resources --raw --id=1 --type=$type a
    expect "--type=$type" 2 "" "tidewell: --type takes *"
done

fork_tool() { python3 "$here/resource-fork.py" "$@"; }

# listed WHAT ARGS...: the listing for programs has what is in resources.json.
listed() {
    "$TIDEWELL" resources --json "${@:2}" >listing || fail "$1: $?"
    fork_tool listed listing <resources.json || fail "$1"
}

# The icon has every other pixel black, in the left half of its mask.
python3 - >resources.json <<'END'
import json
icon = (b"\xaa\xaa\xaa\xaa" * 32 + b"\xff\xff\x00\x00" * 32).decode("mac_roman")
print(json.dumps([["ICN#", 128, "Application icon", 32, icon],
    ["STR ", -16455, "Café \033[31m", 0, "\5Hello"], ["STR ", 5, None, 84, "\x075 \r\n\0é\""],
    ["©\"\\\0", 1, "", 255, ""], ["Äb©~", 3, "", 2, "z"],
    ["TEXT", 32767, "n" * 255, 1, "x"], ["TEXT", -32768, "\t\0\1", 8, "y"]]))
END
fork_tool make <resources.json >fork
# It becomes that of a Mac file, of a MacBinary and of a BinHex file.
size=$(stat -c %s fork)
mac_file make Demo 10 $size TEXT ttxt 0
head -c -$size ._Demo >double && cat double fork >._Demo
mac_file info Demo 10 $size TEXT ttxt 0
cp fork Demo.rsrc
binhex Demo.info | sed '1s/.*/(This file must be converted with BinHex 4.0)/' >Demo.hqx
macstream Demo.info | macsave -b
listed "the fork itself" --data fork
for file in Demo Demo.hqx Demo.bin; do
    listed "$file" $file
done
mac_file make both.bin 10 0 TEXT ttxt 0
cat Demo.bin >both.bin
listed "an archive whose own fork is empty" both.bin

run resources Demo
same "text: status" 0 "$status"
lines=$(grep -an . <<<"$out")
[[ $lines == "1:ICN#  Large (32 x 32) black & white icon with mask
2:     128  Application icon       256 bytes  purgeable
3:STR   String
4:  -16455  Café ?[31m               6 bytes
5:       5                           8 bytes  system heap, locked, preload
"* ]] || fail "text: $lines"
[[ $lines == *"nnnn         1 byte "$'\n'* && $lines == *"  ???  "* && $lines == *":0xa9225c00  "* ]] || fail "text: $lines"

# One resource.
taken() {
    run resources Demo.hqx "$@"
    same "$*" 0 "$status"
}
"$TIDEWELL" resources Demo --type=ICN# --id=128 --raw | cmp - <(printf '\xaa%.0s' {1..128}; printf '\xff\xff\0\0%.0s' {1..32}) ||
    fail "raw"
taken --type='STR ' --id=-16455 --hex
same "hex" "0000: 0548656c 6c6f                        .Hello" "$out"
taken --type=0x54455854 --id=32767 --raw -o text
same "saved" "saved Demo.hqx -> text x" "$out $(cat text)"
taken --type=0xA9225C00 --id=1 --raw -o nothing
same "an empty one" 0 "$(stat -c %s nothing)"
taken --type=Äb©~ --id=3 --raw
same "a type in the Mac's characters" z "$out"
mkdir out
taken --fork -o out/Demo.rsf
same_bytes "the fork" out/Demo.rsf fork

# Replacing.
echo old >out/old
run resources Demo --fork --replace=yes -o out/old
same_bytes "replaced" out/old fork
ln fork out/link
for own in fork out/link; do
    run resources --data --fork --replace=yes -o $own fork
    expect "over itself: $own" 1 "" "tidewell: fork: error 32: $own is the source."
done
mac_file make Beside 10 10 TEXT ttxt 0
cp ._Beside before
mkfifo pipe
ln -s pipe link
long=$(printf "x%.0s" {1..250})
# So deep that a short name fits, and the name that a file has before it is whole does not.
deep=$long/$(printf "y%.0s" $(seq $((255 - ${#PWD}))))
mkdir $long $long/$long "$deep"
for bad in "5 out" "206 $long/$long/$long" "206 $deep/a" "2 nowhere/file" "5 ._Beside" "5 ._new" "5 pipe" "5 link" "5 out/."; do
    run resources Demo --fork --replace=yes -o "${bad#* }"
    expect "$bad" 1 "" "tidewell: *: error ${bad% *}: ?*"
done
same_bytes "AppleDouble files are left alone" ._Beside before
[ -p pipe ] && [ -h link ] || fail "a pipe was replaced"

# What fails leaves nothing.
python3 -c 'import json; json.dump([["BIG ", 1, None, 0, "x" * 2000000]], open("big.json", "w"))'
fork_tool make <big.json >big
mkdir small
for what in "--type=BIG\  --id=1 --raw" --fork; do
    (
        trap '' XFSZ
        ulimit -f 1000
        eval "run resources --data big $what -o small/file"
        [ "$status" = 1 ] || fail "half-way: $status"
    )
    same "half-way: $what" "" "$(ls -A small)"
done
for what in "resources Demo" "resources --json Demo" "resources --type=ICN# --id=128 --hex Demo" "pack -o small Demo fork" \
    --help --version; do
    status=0
    "$TIDEWELL" $what >/dev/full 2>full || status=$?
    same "a full standard output: $what" "1 tidewell: the standard output takes no more" "$status $(grep output full)"
done
# AddressSanitizer could not begin with so little memory.
if ! grep -q __asan_init "$TIDEWELL"; then
    cp big huge
    perl -pi -e 'BEGIN { $/ = undef } substr($_, 256, 4) = pack("N", 100 << 20)' huge
    truncate -s 101M huge
    (
        ulimit -v 180000
        run resources --data --type='BIG ' --id=1 --raw -o small/file huge
        expect "no memory" 1 "" "tidewell: error 8: there is not enough memory"
    )
fi
mkfifo unread
exec 9<>unread
status=0
timeout --preserve-status -s INT -k 5 1 "$TIDEWELL" resources --data --type='BIG ' --id=1 --raw big >unread 2>full || status=$?
same "interrupted while nobody reads" "1 tidewell: cancelled" "$status $(cat full)"
exec 9<&-
shown=$(script -qec "'$TIDEWELL' resources Demo --type=ICN# --id=128 --raw" /dev/null || true)
[[ $shown == *"say -o FILE"* ]] || fail "raw on a terminal: $shown"

# Pictures.
run resources --png=out Demo
expect "pictures" 0 "saved Demo -> out/ICN#_128.png"
fork_tool pixels 'out/ICN#_128.png' >pixels
same "rows" 32 "$(wc -l <pixels)"
same "in the mask" "$(printf '000000ffffffffff%.0s' {1..8})" "$(cut -c-128 pixels | sort -u)"
same "outside the mask" "$(printf '00%.0s' {1..16})" "$(cut -c129- pixels | sed 's/.\{6\}\(..\)/\1/g' | sort -u)"
echo '[["ICON", 1, null, 0, "short"], ["TEXT", 1, null, 0, "none"]]' | fork_tool make >bad
run resources --data --png=out bad
expect "a damaged picture" 1 "" "tidewell: bad: error 13: ICON_1.png is left out*"

# What is no fork.
head -c 200 fork >cut
head -c 300 Demo.hqx >short.hqx
tr T U <Demo.bin >damaged.bin
echo text >none.hqx
: >empty
for bad in "38 --data cut" "1003 --data empty" "1003 resources.json" "1003 Demo.data" "38 short.hqx" "23 damaged.bin" \
    "13 none.hqx" "2 missing" "5 out"; do
    run resources ${bad#* }
    expect "$bad" 1 "" "tidewell: ${bad##* }: error ${bad%% *}: ?*"
done
echo '[]' | fork_tool make >none
run resources --data --json none
expect "no resources" 0 "[]"
# A size behind the end of the fork, and entries behind it.
echo '[["FAR ", 1, null, 0, "x"]]' | fork_tool make >fork
perl -pi -e 'BEGIN { $/ = undef } substr($_, -7, 3) = "\xff\xff\xff"' fork
run resources --data --json fork
[[ "$status $out" == "0 "*'"size": null,'* ]] || fail "unreadable for programs: $status $out"
run resources --data fork
[[ "$status $out" == "0 FAR "*" unreadable" ]] || fail "unreadable: $status $out"
cp fork over
perl -pi -e 'BEGIN { $/ = undef } substr($_, -16, 2) = "\xff\xff"' over
run resources --data --json over
[[ "$status $messages" == "1 tidewell: over: error 1392: "* ]] || fail "entries behind the end: $status $messages"
# Lists that overlap, in a fork with room for more.
echo '[["ONE ", 1, null, 0, ""], ["TWO ", 2, null, 0, ""]]' | fork_tool make >over
perl -pi -e 'BEGIN { $/ = undef } substr($_, -36, 2) = substr($_, -28, 2) = "\x90\0"' over
truncate -s 2M over
run resources --data --json over
[[ "$status $messages" == "1 tidewell: over: error 1392: "* ]] || fail "lists that overlap: $status $messages"
