# What the benchmarks of whole commands share: each works in a folder of its own, and its figures are ratios
# of runs that follow each other.
set -euo pipefail

tidewell=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/host/tidewell
work=$(mktemp -d "${1:-${TMPDIR:-/tmp}}/tidewell-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir out

# as_read FILE...: lets the system forget the files, which it keeps in smaller pieces when they were just written
# than when they come from the disk.
as_read() {
    sync -f .
    local file
    for file in "$@"; do
        dd if="$file" iflag=nocache count=0 status=none
        cat "$file" >/dev/null
    done
}

empty_out() {
    rm -rf out
    mkdir out
}

# How long the command takes, in seconds, right after a run that does not count: a virtual machine that has
# given idle memory back gets it again only slowly, which is no work of the command's; nor is it to write out
# what came before.
seconds() {
    empty_out
    "$@" >/dev/null
    empty_out
    sync -f .
    local start=$EPOCHREALTIME
    "$@" >/dev/null
    local end=$EPOCHREALTIME
    awk "BEGIN { print $end - $start }"
}

# compare PAIRS WHAT A B: how many times as long as B the command A takes, each run PAIRS times in turn. Both
# are functions or words without blanks in them.
compare() {
    local pairs=$1 what=$2 a=$3 b=$4 time_of_a time_of_b
    for _ in $(seq "$pairs"); do
        time_of_a=$(seconds $a)
        time_of_b=$(seconds $b)
        awk "BEGIN { print $time_of_a / $time_of_b }"
    done | sort -n | awk -v what="$what" '
        { ratio[NR] = $1 }
        END { printf "%s, %d pairs: median %.2f, from %.2f to %.2f\n", what, NR, ratio[int((NR + 1) / 2)], ratio[1], ratio[NR] }'
}

# peak WHAT COMMAND...: how much memory it takes.
peak() {
    empty_out
    /usr/bin/time -f "$1: peak memory %M KB" "${@:2}" 2>&1 >/dev/null
}
