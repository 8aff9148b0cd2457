#!/usr/bin/env bash
# On a terminal: the progress line, the replace question, and the interrupt key.
. "$(dirname "$0")/support.bash"

for name in a b c; do
    mac_file make $name 100 100 TEXT ttxt 0
done

# asked INPUT PATTERN FILES: what packing the files over old ones shows, with INPUT typed.
asked() {
    for name in a b c; do
        echo old >$name.bin
    done
    shown=$(printf "$1" | script -qec "'$TIDEWELL' pack $3" /dev/null | tr -d '\r' || true)
    [[ $shown == $2 ]] || fail "$1: $shown"
}

asked 'x\ny\n' "*already contains a file named 'a.bin'*\[y]es, \[n]o:*packed a -> a.bin*" a
asked 'n\na\n' "*\[y]es, yes to \[a]ll*packed b -> b.bin*packed c -> c.bin*" "a b c"
same "no before yes to all" old "$(cat a.bin)"
asked 'y\nc\n' "*packed a -> a.bin*cancelled*" "a b c"
same "cancel" oldold "$(cat b.bin c.bin | tr -d '\n')"

# The interrupt key stops a long packing and takes the unfinished output away; what is done stays.
rm -f ./*.bin
mac_file make long 10 10 TEXT ttxt 0
truncate -s 3G long
set -m # without job control the shell would have it ignore the interrupt key
"$TIDEWELL" pack a long >line 2>messages &
packing=$!
begun() { [ -n "$(find . -name '.tidewell-*' -size +0)" ]; }
for _ in $(seq 200); do
    begun && break
    sleep 0.02
done
begun || fail "the packing did not begin"
kill -INT $packing
status=0
wait $packing || status=$?
out=$(cat line)
messages=$(cat messages)
expect "interrupted" 1 "packed a -> a.bin" "tidewell: cancelled"
[ -e a.bin ] || fail "interrupted: a finished file is gone"
[ ! -e long.bin ] && ! begun || fail "interrupted: an unfinished file is left"
