#!/usr/bin/env bash
# The command as its users meet it: lines, errors, exit status, replacing.
. "$(dirname "$0")/support.bash"

for wrong in "" "unpack" "pack" "pack -oout x" "pack --replace=maybe x" "pack -o" "pack --fast x" "--fast"; do
    run $wrong
    expect "'$wrong'" 2 "" "*usage:*"
done
run --help
[[ "$status $out" == "0 usage:"*--replace=ask* ]] || fail "help: $out"
run --version
[[ $out == "tidewell "[0-9]* ]] || fail "version: $out"

mac_file make Read.Me 1000 500 TEXT ttxt 0100
mac_file make Notes 2000 0 TEXT ttxt 0100
mkdir -p out
run pack -o out Read.Me ./Notes
expect "two files" 0 $'packed Read.Me -> out/Read.bin\npacked ./Notes -> out/Notes.bin'
cp Notes before
run pack Notes
expect "the current folder" 0 "packed Notes -> Notes.bin"
same_bytes "the source is only read" Notes before

# Replacing. Without a terminal nobody can be asked.
mac_file make Notes 2500 0 TEXT ttxt 0100
cp Notes.bin old.bin
run pack Notes
expect "exists" 1 "" "tidewell: Notes: error 80: *"
run pack --replace=no Notes Read.Me
expect "kept" 0 "packed Read.Me -> Read.bin" "*"
same_bytes "kept" Notes.bin old.bin
run pack --replace=yes Notes
expect "replaced" 0 "packed Notes -> Notes.bin"
same "replaced: size" 2688 "$(stat -c %s Notes.bin)"
mkdir sub
mac_file make sub/Notes 10 10 TEXT ttxt 0
rm -f Notes.bin
run pack --replace=yes Notes sub/Notes
expect "an output of this run is not replaced" 1 "packed Notes -> Notes.bin" \
    "tidewell: sub/Notes: error 32: *written a moment ago*"

# Bad input: an error each, the others done, nothing left behind.
rm -rf out && mkdir out
mkfifo pipe
head -c 20 ._Read.Me >short && mv short ._Read.Me && cp ._Read.Me damaged
long=$(printf "x%.0s" {1..250})/$(printf "x%.0s" {1..250})
for bad in "2 missing" "3 missing/file" "5 sub" "206 $long" "5 pipe" "1392 Read.Me"; do
    run pack --replace=yes -o out "${bad#* }" Notes
    expect "$bad" 1 "packed Notes -> out/Notes.bin" "tidewell: ${bad#* }: error ${bad%% *}: ?*"
done
same_bytes "a damaged AppleDouble file is left alone" ._Read.Me damaged
same "nothing is left behind" Notes.bin "$(ls -A out)"
for folder in "2 nowhere" "161 Notes"; do
    run pack -o "${folder#* }" Notes
    expect "no folder" 1 "" "tidewell: ${folder#* }: error ${folder%% *}: *"
done

# The output is the source itself, its AppleDouble file, or another source, by its name or by a link.
mac_file make self.bin 3000 100 TEXT ttxt 0
mac_file make self 10 10 TEXT ttxt 0
cp self.bin before
cp ._self.bin before.double
run pack --replace=yes self.bin
expect "itself" 1 "" "tidewell: self.bin: error 32: *"
for link in "ln self.bin" "ln -sf ../self.bin" "ln -sf ../._self.bin"; do
    $link out/self.bin
    run pack --replace=yes -o out self.bin
    expect "$link" 1 "" "tidewell: self.bin: error *"
    [[ $link == *._* || $messages == *"error 32: "* ]] || fail "$link: $messages"
done
rm out/self.bin
run pack --replace=yes self self.bin
expect "another source" 1 "" "tidewell: self: error 32: *tidewell: self.bin: error 32: *"
same_bytes "the source is whole" self.bin before
same_bytes "the AppleDouble file is whole" ._self.bin before.double

# An output that nobody takes is no success.
run_status=0
"$TIDEWELL" pack --replace=yes -o out self >/dev/full 2>messages || run_status=$?
same "a full standard output" 1 "$run_status"

# Names that Windows could not hold.
for name in 'trail ' 'a:b' 'a\b' 'a*b?' 'end. ' ':' '-x'; do
    mac_file make "$name" 10 10 TEXT ttxt 0
    run pack -o out --replace=yes -- "$name"
    same "'$name'" 0 "$status"
done
[ -e 'out/trail .bin' ] && [ -e 'out/a:b.bin' ] && [ -e 'out/a\b.bin' ] && [ -e 'out/:.bin' ] || fail "odd names: $(ls out)"
same "a colon is a slash on the Mac" a/b "$(dd if='out/a:b.bin' bs=1 skip=2 count=3 status=none)"

# A write that fails half-way: a limit on the size of files stands in for a full disk. What an output replaces
# is there until all of the output is; what lies beside it is left alone.
mkdir small
mac_file make Large 3000000 10 TEXT ttxt 0
half_way() (
    trap '' XFSZ
    ulimit -f 1000
    run pack --replace=yes -o small Large
    expect "half-way" 1 "" "tidewell: Large: error 223: *"
)
half_way
same "half-way: nothing left behind" "" "$(ls -A small)"
echo old >small/Large.bin
echo notes >small/._Large.bin
half_way
same "replaced half-way" "old notes" "$(echo $(cat small/Large.bin small/._Large.bin))"
mkdir target
echo other >target/file
ln -sf ../target/file small/Large.bin
run pack --replace=yes -o small Large
same "a link is replaced, and not what it leads to" "0 other" "$status $(cat target/file)"

# Without a current folder a relative path means nothing.
mkdir gone
(
    cd gone
    rmdir ../gone
    status=0
    "$TIDEWELL" pack -o / etc/hostname >/dev/null 2>&1 || status=$?
    [ "$status" = 1 ] && [ ! -e /hostname.bin ] || fail "a deleted current folder: $status"
)
