# What the tests of the command share. Each test script sources it and works in a folder of its own.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
: "${TIDEWELL:?TIDEWELL names the command}"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

mac_file() { perl "$here/mac-file.pl" "$@"; }

fail() {
    printf 'FAILED: %s\n' "$*" >&2
    exit 1
}

# same WHAT EXPECTED GOT
same() {
    [ "$2" = "$3" ] || fail "$1: expected '$2', got '$3'"
}

# same_bytes WHAT FILE FILE
same_bytes() {
    cmp "$2" "$3" >/dev/null || fail "$1: $2 and $3 differ"
}

# run ARGS...: the command's output in $out, its messages in $messages, its exit status in $status.
run() {
    status=0
    out=$("$TIDEWELL" "$@" 2>messages) || status=$?
    messages=$(cat messages)
    rm messages
}

# expect WHAT STATUS OUTPUT [MESSAGES]: what the last run gave. MESSAGES is a pattern, by default none.
expect() {
    same "$1: status" "$2" "$status"
    same "$1: output" "$3" "$out"
    # shellcheck disable=SC2053
    [[ $messages == ${4-} ]] || fail "$1: expected '${4-}', got '$messages'"
}
