#!/usr/bin/env bash
# On a terminal: the progress line, the replace question, and the interrupt key.
. "$(dirname "$0")/support.bash"

# on_terminal INPUT ARGS...: what the terminal shows, with INPUT typed.
on_terminal() {
    local input=$1
    shift
    printf "$input" | script -qec "$(printf '%q ' "$TIDEWELL" "$@")" /dev/null | tr -d '\r'
}

for name in a b c; do
    mac_file make $name 100 100 TEXT ttxt 0
    echo old >$name.bin
done
shown=$(on_terminal 'n\n' pack a)
[[ $shown == *"already contains a file named 'a.bin'"*"[y]es, [n]o:"* ]] || fail "question: $shown"
same "no" old "$(cat a.bin)"
shown=$(on_terminal 'x\ny\n' pack a)
[[ $shown == *"packed a -> a.bin"* ]] || fail "yes: $shown"
echo old >a.bin
shown=$(on_terminal 'n\na\n' pack a b c)
[[ $shown == *"yes to [a]ll"*"packed b -> b.bin"*"packed c -> c.bin"* ]] || fail "yes to all: $shown"
same "no before yes to all" old "$(cat a.bin)"
echo old >b.bin
echo old >c.bin
shown=$(on_terminal 'y\nc\n' pack a b c || true)
[[ $shown == *"packed a"*cancelled* && $shown != *"packed b"* ]] || fail "cancel: $shown"
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
same "interrupted: status" 1 "$status"
same "interrupted: done before" "packed a -> a.bin" "$(cat line)"
same "interrupted: message" "tidewell: cancelled" "$(cat messages)"
[ -e a.bin ] || fail "interrupted: a finished file is gone"
[ ! -e long.bin ] && ! begun || fail "interrupted: an unfinished file is left"
