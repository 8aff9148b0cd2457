#!/usr/bin/env bash
# The setup program on a PC of its own: it installs, replaces and removes, also what is in use, and nothing else is
# changed. $TIDEWELL_BUILD is the folder of the builds, win32 and win64.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${TIDEWELL_BUILD:?TIDEWELL_BUILD is the folder of win32 and win64}
runtime=$root/build/wine-setup

fail() {
    printf 'FAILED: %s\n' "$*" >&2
    exit 1
}

for file in win64/TIDEWELL.DLL win32/TIDEWELL.DLL win32/TidewellSetup.exe {win32,win64}/{hold_library,explorer_host}.exe; do
    [ -e "$build/$file" ] || fail "$build/$file has not been built (the preset win64 comes before win32)"
done

# The PC is a copy of the tests' own, which so stays as it is whatever happens; of the files of Windows, which
# nothing here writes, only the names are copied.
if [ -z "${TIDEWELL_SETUP_TEST-}" ]; then
    rm -rf "$runtime"
    trap 'rm -rf "$runtime"' EXIT
    mkdir -p "$runtime/home" "$runtime/prefix"
    ln -s ../wine/dlls "$runtime/dlls"
    cp -al "$root/build/wine/prefix/drive_c" "$runtime/prefix/drive_c"
    cp -a "$root"/build/wine/prefix/{dosdevices,.update-timestamp,*.reg} "$runtime/prefix"
    status=0
    env -u TIDEWELL_WINE_SESSION TIDEWELL_WINE="$runtime" TIDEWELL_SETUP_TEST=1 "$root/tools/wine-session" "$0" ||
        status=$?
    exit "$status"
fi

trap 'echo "FAILED: line $LINENO: $BASH_COMMAND" >&2' ERR
work=$runtime/work
mkdir "$work"
pc=$runtime/prefix/drive_c
folder="$pc/Program Files (x86)/Tidewell"
settings='HKCU\Software\Brinefield Software\Tidewell\CurrentVersion'

win() { "$root/tools/wine-run" "$@" </dev/null; }
# As the 32-bit and the 64-bit programs see the registry.
reg32() { win 'C:\windows\syswow64\reg.exe' "$@"; }
reg64() { win reg.exe "$@"; }
# A path of the source tree as Windows has it.
on_t() { printf 'T:%s' "${1#"$root"}" | tr / '\\'; }

# same WHAT EXPECTED GOT
same() {
    [ "$2" = "$3" ] || fail "$1: expected '$2', got '$3'"
}

# ends_with STATUS PROGRAM [ARGUMENT]...: of the exit code a shell gets 8 bits.
ends_with() {
    local status=0
    win "${@:2}" || status=$?
    same "${*:2}: exit code" $(($1 & 255)) "$status"
}

# setup STATUS [SWITCH]
setup() { ends_with "$1" "$(on_t "$build/win32/TidewellSetup.exe")" /S "${@:2}"; }

# uninstall [SWITCH]: it works in a copy of itself, which is waited for.
uninstall() {
    win 'C:\Program Files (x86)\Tidewell\Uninstall.exe' /S "$@"
    while grep -qsa '[~]nsu' /proc/[0-9]*/cmdline; do sleep 0.1; done
}

# What waits for the start of Windows is done; nothing that is in use stays so.
restart() {
    let_go
    win wineboot.exe
}

# hold LIBRARY BITS TITLE: a program has it loaded until let_go.
holders=()
hold() {
    "$root/tools/wine-run" "$(on_t "$build/win$2/hold_library.exe")" "$1" "$3" </dev/null >"$work/held" &
    holders+=($!)
    until [ -s "$work/held" ]; do
        kill -0 $! 2>/dev/null || fail "$1 cannot be loaded in $2 bits"
        sleep 0.05
    done
    rm "$work/held"
}
let_go() {
    local holder
    for holder in "${holders[@]}"; do
        kill -9 "$holder" 2>/dev/null || true
        wait "$holder" 2>/dev/null || true
    done
    holders=()
}
hold_both() {
    hold 'C:\Program Files (x86)\Tidewell\TIDEWELL.DLL' 32 another
    hold 'C:\Program Files (x86)\Tidewell\x64\TIDEWELL.DLL' 64 another
}

# snapshot NAME: the registry, where Wine keeps both views, but for what lasts as long as its desktop, and the files of
# the disk.
snapshot() {
    local part
    for part in 'HKLM\Software' 'HKCU\Software'; do
        reg64 export "$part" "$(on_t "$work/part.reg")" /y >/dev/null
        iconv -f UTF-16 -t UTF-8 "$work/part.reg" | sed '/^\[.*\\Temporary System Parameters/,/^\r*$/d'
    done >"$work/$1.reg"
    (cd "$pc" && find . \( -path ./windows -o -path '*/Temp/*' \) -prune -o -printf '%p %s\n' | sort) >"$work/$1.files"
}
# unchanged WHAT NAME: PC and snapshot are alike.
unchanged() {
    snapshot now
    local kind
    for kind in reg files; do
        diff "$work/$2.$kind" "$work/now.$kind" >"$work/difference" || fail "$1: $(head -n 20 "$work/difference")"
    done
}

# installed WHAT: the files are those of the builds.
installed() {
    cmp "$build/win32/TIDEWELL.DLL" "$folder/TIDEWELL.DLL" || fail "$1: the 32-bit library"
    cmp "$build/win64/TIDEWELL.DLL" "$folder/x64/TIDEWELL.DLL" || fail "$1: the 64-bit library"
    cmp "$build/win32/tidewell.exe" "$folder/tidewell.exe" || fail "$1: the command"
    sed 's/$/\r/' "$root/setup/readme.txt" | sed "s/@TIDEWELL_VERSION@/$version/" |
        cmp - "$folder/Readme.txt" || fail "$1: the readme"
    same "$1: files" "Readme.txt TIDEWELL.DLL TIDEWELL.DLL Uninstall.exe tidewell.exe" \
        "$(find "$folder" -type f -printf '%f\n' | LC_ALL=C sort | xargs)"
}
version=$(sed -n 's/.*TIDEWELL_VERSION "\(.*\)"/\1/p' "$root/src/res/version.h")

# value VIEW KEY NAME: of a key of HKEY_LOCAL_MACHINE\Software.
value() {
    local name=(/v "$3")
    [ -n "$3" ] || name=(/ve)
    "reg$1" query "HKLM\\Software\\$2" "${name[@]}" 2>/dev/null | tr -d '\r' | sed -n 's/^ .*  REG_SZ    //p'
}

class() { echo "{4DD1918$1-ACE2-11CF-BBF2-444553540000}"; }

registered() {
    local view path number items kind
    while read -r view path; do
        for number in 0 1 2; do
            same "class $number in $view bits" "$path" "$(value "$view" "Classes\\CLSID\\$(class $number)\\InprocServer32" "")"
            same "threads of class $number" Apartment \
                "$(value "$view" "Classes\\CLSID\\$(class $number)\\InprocServer32" ThreadingModel)"
            [ -n "$(value "$view" "$approved" "$(class $number)")" ] || fail "class $number is not approved in $view bits"
        done
        while read -r items kind number; do
            same "$kind of $items in $view bits" "$(class "$number")" \
                "$(value "$view" "Classes\\$items\\shellex\\${kind}Handlers\\Tidewell" "")"
        done <<<"$handlers"
    done <<<"$libraries"
}
libraries='32 C:\Program Files (x86)\Tidewell\TIDEWELL.DLL
64 C:\Program Files (x86)\Tidewell\x64\TIDEWELL.DLL'
handlers='* ContextMenu 2
* PropertySheet 0
Directory ContextMenu 2
Directory PropertySheet 0
Folder DragDrop 2
Drive ContextMenu 1
Drive PropertySheet 0'
approved='Microsoft\Windows\CurrentVersion\Shell Extensions\Approved'

# What other tests may have left in the PC that this one is a copy of.
for key in 'HKCU\Software\Brinefield Software' 'HKCU\Software\Wine\AppDefaults'; do
    reg64 delete "$key" /f >/dev/null 2>&1 || true
done
snapshot before

# A file that cannot be written stops setup; nothing is registered, nothing stays.
mkdir -p "$folder/tidewell.exe.new"
setup 2
rmdir "$folder/tidewell.exe.new" "$folder"
same "registered after a failure" "" "$(value 32 'Microsoft\Windows\CurrentVersion\Uninstall\Tidewell' DisplayName)$(
    value 32 "Classes\\CLSID\\$(class 0)" "")$(value 64 "Classes\\CLSID\\$(class 0)" "")"

# On Windows 95 and 98 there is no list of approved extensions.
program='HKCU\Software\Wine\AppDefaults\TidewellSetup.exe'
reg64 add "$program" /v Version /d win98 /f >/dev/null
setup 0
same "approved on Windows 98" "" "$(value 32 "$approved" "$(class 0)")$(value 64 "$approved" "$(class 0)")"
reg64 delete 'HKCU\Software\Wine\AppDefaults' /f >/dev/null

# Libraries that are in use, as an older version has them: this one is there after a restart.
cp "$build/win32/TIDEWELL_DE.DLL" "$folder/TIDEWELL.DLL"
cp "$build/win64/TIDEWELL_DE.DLL" "$folder/x64/TIDEWELL.DLL"
hold_both
setup 3010
cmp "$build/win32/TIDEWELL_DE.DLL" "$folder/TIDEWELL.DLL"
restart
installed "replaced at the restart"
registered
setup 0 '/D=C:\Elsewhere'
installed "over itself, where it was"

# What Explorer has of it. The remembered folders are the hosts' own.
as_explorer() {
    local bits
    for bits in 32 64; do
        (cd "$work" && win "$(on_t "$build/win$bits/explorer_host.exe")" "$@") >"$work/host" ||
            fail "explorer_host in $bits bits: $(cat "$work/host")"
    done
}
as_explorer
reg64 delete "$settings" /f >/dev/null

# Deleted in use, and installed again before the restart: what waits must not take the new files away.
hold_both
short=$(win winepath.exe -s 'C:\Program Files (x86)\Tidewell' | tr -d '\r')
ends_with 3010 'C:\Program Files (x86)\Tidewell\Uninstall.exe' /S "_?=$short"
let_go
setup 3010
setup 3010
restart
installed "installed before the restart"

# The product's own window is asked to quit, and the folders stay, or go on request.
reg64 add "$settings" /v MBinCreatePath /d 'C:\Packed' /f >/dev/null
reg64 add "$settings" /v MBinExtractPath /d 'C:\Mac' /f >/dev/null
remembered=$(reg64 query 'HKCU\Software\Brinefield Software' /s)
hold 'C:\windows\syswow64\version.dll' 32 TDSHELL
uninstall
for _ in $(seq 50); do kill -0 "${holders[0]}" 2>/dev/null || break; sleep 0.1; done
! kill -0 "${holders[0]}" 2>/dev/null || fail "the product's window was not asked to quit"
same "the remembered folders" "$remembered" "$(reg64 query 'HKCU\Software\Brinefield Software' /s)"
[ ! -e "$folder" ] || fail "left behind: $(find "$folder")"
reg64 delete 'HKCU\Software\Brinefield Software' /f >/dev/null
unchanged "after the uninstaller" before
as_explorer --absent

setup 0
reg64 add "$settings" /v MBinCreatePath /d 'C:\Packed' /f >/dev/null
reg64 add "$settings" /v MBinExtractPath /d 'C:\Mac' /f >/dev/null
hold_both
uninstall /FORGET
restart
unchanged "after the uninstaller and a restart" before
