#!/usr/bin/env bash
# The command as its users meet it: lines, errors, exit status, replacing.
. "$(dirname "$0")/support.bash"

run
same "no command: status" 2 "$status"
for wrong in "unpack" "pack" "pack -oout x" "pack --replace=maybe x" "pack -o" "pack --fast x" "--fast"; do
    run $wrong
    same "$wrong: status" 2 "$status"
    same "$wrong: output" "" "$out"
    [[ $messages == *usage:* ]] || fail "$wrong: no usage: $messages"
done
run --help
same "help: status" 0 "$status"
[[ $out == usage:*--replace=ask* ]] || fail "help: $out"
run --version
[[ $out == "tidewell "[0-9]* ]] || fail "version: $out"

mac_file make Read.Me 1000 500 TEXT ttxt 0100
mac_file make Notes 2000 0 TEXT ttxt 0100
mkdir -p out
run pack -o out Read.Me ./Notes
same "two files" $'packed Read.Me -> out/Read.bin\npacked ./Notes -> out/Notes.bin' "$out"
same "two files: messages" "" "$messages"
same "two files: status" 0 "$status"
cp Notes before
run pack Notes
same "the current folder" "packed Notes -> Notes.bin" "$out"
same_bytes "the source is only read" Notes before

# Replacing. Without a terminal nobody can be asked.
mac_file make Notes 2500 0 TEXT ttxt 0100
cp Notes.bin old.bin
run pack Notes
same "exists: status" 1 "$status"
[[ $messages == "tidewell: Notes: error 80: "* ]] || fail "exists: $messages"
run pack --replace=no Notes Read.Me
same "kept: status" 0 "$status"
same "kept" "packed Read.Me -> Read.bin" "$out"
same_bytes "kept" Notes.bin old.bin
run pack --replace=yes Notes
same "replaced" "packed Notes -> Notes.bin" "$out"
same "replaced: size" 2688 "$(stat -c %s Notes.bin)"
mac_file make Read.Too 10 10 TEXT ttxt 0
mkdir sub
mac_file make sub/Notes 10 10 TEXT ttxt 0
rm -f Notes.bin
run pack --replace=yes Notes sub/Notes
same "an output of this run is not replaced: status" 1 "$status"
same "an output of this run is not replaced" "packed Notes -> Notes.bin" "$out"
[[ $messages == "tidewell: sub/Notes: error 32: "*"written a moment ago"* ]] || fail "an output of this run: $messages"

# Bad input: an error each, the others done, nothing left behind.
error() {
    local code=$1
    shift
    run pack --replace=yes -o out "$@"
    same "$*: status" 1 "$status"
    [[ $messages == "tidewell: "*": error $code: "?* ]] || fail "$*: expected error $code, got: $messages"
}
rm -rf out && mkdir out
error 2 missing
error 3 missing/file
error 5 sub
error 206 "$(printf 'x%.0s' {1..240})"
mkfifo pipe
error 5 pipe
head -c 20 ._Read.Me >short && mv short ._Read.Me && cp ._Read.Me damaged
error 1392 Read.Me
same_bytes "a damaged AppleDouble file is left alone" ._Read.Me damaged
[ -z "$(ls -A out)" ] || fail "left behind: $(ls -A out)"
error 2 missing Notes
same "the others are done" "packed Notes -> out/Notes.bin" "$out"
run pack -o nowhere Notes
same "no folder: status" 1 "$status"
[[ $messages == "tidewell: nowhere: error 2: "* ]] || fail "no folder: $messages"
run pack -o Notes Notes
[[ $messages == "tidewell: Notes: error 161: "* ]] || fail "not a folder: $messages"

# The output is the source itself, by its name and by a link.
mac_file make self.bin 3000 100 TEXT ttxt 0
cp self.bin before
run pack --replace=yes self.bin
[[ $messages == "tidewell: self.bin: error 32: "* ]] || fail "itself: $messages"
ln self.bin out/self.bin
run pack --replace=yes -o out self.bin
[[ $messages == "tidewell: self.bin: error 32: "* ]] || fail "itself by a link: $messages"
ln -sf ../self.bin out/self.bin
run pack --replace=yes -o out self.bin
[[ $messages == "tidewell: self.bin: error 32: "* ]] || fail "itself by a symbolic link: $messages"
same_bytes "the source is whole" self.bin before

# Neither the AppleDouble file of a source nor another source is ever an output.
cp ._self.bin before
ln -sf ../._self.bin out/self.bin
run pack --replace=yes -o out self.bin
same "its AppleDouble file by a link: status" 1 "$status"
same_bytes "the AppleDouble file is whole" ._self.bin before
rm out/self.bin
mac_file make self 10 10 TEXT ttxt 0
cp self.bin before
run pack --replace=yes self self.bin
[[ $messages == "tidewell: self: error 32: "*"tidewell: self.bin: error 32: "* ]] || fail "another source: $messages"
same_bytes "another source is whole" self.bin before

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

# A write that fails half-way: a limit on the size of files stands in for a full disk.
mkdir small
mac_file make Large 3000000 10 TEXT ttxt 0
(
    trap '' XFSZ
    ulimit -f 1000
    run pack -o small Large
    same "half-way: status" 1 "$status"
    [[ $messages == "tidewell: Large: error 223: "* ]] || fail "half-way: $messages"
)
[ -z "$(ls -A small)" ] || fail "half-way: left behind $(ls -A small)"

# What an output replaces is there until all of the output is; what lies beside it is left alone.
echo old >small/Large.bin
echo notes >small/._Large.bin
(
    trap '' XFSZ
    ulimit -f 1000
    run pack --replace=yes -o small Large
    same "replaced half-way: status" 1 "$status"
)
same "replaced half-way" "old notes" "$(cat small/Large.bin small/._Large.bin | tr '\n' ' ' | sed 's/ $//')"
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
