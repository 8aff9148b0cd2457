#!/usr/bin/env bash
# What extract does with what is there already: nothing is lost before the new file is whole.
. "$(dirname "$0")/support.bash"

mac_file macbinary 2 Eins 3000 20 TEXT ttxt 0 >one.bin
mac_file macbinary 2 Eins 3000000 2000000 APPL MOSS 0 >big.bin
mac_file binhex Eins 3000 20 TEXT ttxt 0 | sed '$s/.$//' | head -n -3 >cut.hqx
head -c 2000 one.bin >cut.bin

contents() { (cd out && find . -type f | LC_ALL=C sort | xargs -r sha256sum) >"$1"; }

# kept ERROR WHAT ARGS...: the extraction fails with this error, and the folder is as it was.
kept() {
    local error=$1 what=$2
    shift 2
    contents before
    run extract -o out "$@"
    expect "$what" 1 "" "tidewell: *: error $error: *"
    contents after
    same_bytes "$what" before after
}

# A file that fails leaves the one that it was to replace, with its forks.
mkdir out
mac_file make out/Eins 500 50 OLDT OLDC 0
kept 38 "damaged MacBinary" --replace=yes cut.bin
kept 38 "damaged BinHex" --replace=yes cut.hqx
(ulimit -f 10 && kept 223 "no more room" --replace=yes big.bin)
chmod a-w out/Eins
kept 5 "not to be written" --replace=yes one.bin
chmod 600 out/Eins
run extract --replace=yes -o out one.bin
same "replaced: permissions" 600 "$(stat -c %a out/Eins)"
same "replaced: nothing beside it" $'._Eins\nEins' "$(ls -A out)"
same "replaced: type" "TEXT ttxt 0000" "$(mac_file finder out/._Eins)"

# A link is replaced, and not what it leads to.
rm -rf out && mkdir out
echo victim >victim
ln -s ../victim out/Eins
kept 38 "link" --replace=yes cut.bin
[ -L out/Eins ] || fail "link: it is gone after a failure"
run extract --replace=yes -o out one.bin
same "link" "victim 3000" "$(cat victim) $(stat -c %s out/Eins)"

# Mac information whose file is gone may be all that is left of it.
for resource in 0 50; do
    rm -rf out && mkdir out
    mac_file make out/Eins 0 $resource OLDT OLDC 0
    rm out/Eins
    kept 80 "Mac information alone" one.bin
    kept 38 "Mac information alone, damaged" --replace=yes cut.bin
    run extract --replace=no -o out one.bin
    same "Mac information alone: kept" "._Eins" "$(ls -A out)"
    run extract --replace=yes -o out one.bin
    same "Mac information alone: replaced" 3000 "$(stat -c %s out/Eins)"
done

# What has the name of an AppleDouble file, and is none, is somebody's.
rm -rf out && mkdir out
echo notes >out/._Eins
kept 1392 "no AppleDouble file" --replace=yes one.bin
echo old >out/Eins
kept 1392 "no AppleDouble file beside a file" --replace=yes one.bin

# Of two processes that extract one name, one comes after the other.
rm -rf out && mkdir out
for _ in 1 2 3 4; do
    "$TIDEWELL" extract --replace=yes -o out one.bin >/dev/null &
    "$TIDEWELL" extract --replace=yes -o out big.bin >/dev/null
    wait $!
    forks="$(stat -c %s out/Eins) $(mac_file fork out/._Eins | wc -c)"
    [[ $forks == "3000 20" || $forks == "3000000 2000000" ]] || fail "two at once: $forks"
done
same "two at once: nothing beside it" $'._Eins\nEins' "$(ls -A out)"

# A path that is too long is told in words.
deep=out/$(printf 'd%.0s' {1..200})/$(printf 'e%.0s' {1..250})
mkdir -p "$deep"
run extract -o "$deep" one.bin
expect "long path" 1 "" "*: error 122: The path of the output folder is too long.*"
