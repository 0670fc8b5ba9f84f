#!/bin/bash
# Runs a Windows kit in a virtual machine, unattended and without a screen, on a clone of a disk image.
#
#   virtual_machine.sh IMAGE KIT OUT
#
# IMAGE  the disk of a system that logs an administrator on by itself; any format that QEMU reads. It is
#        not changed. How to prepare one: tools/windows_kit/README.txt.
# KIT    what windows_kit.sh made; its run.cmd is started at logon
# OUT    a folder for what comes back: report.txt, console.txt (what run.cmd prints, as it comes), screen-SECONDS.png
#
# Exits with run.cmd's exit code, with 124 when the machine took too long, and with 125 when it could
# not do its work. In the environment: LIMIT (1800), START_LIMIT (600): seconds for all, and until the
# kit has started; MEMORY (2048): megabytes; ACCEL: kvm or tcg, otherwise KVM where it works. The kit's
# disc.iso is in a CD drive.
set -eu
. "$(dirname "$0")/usage.sh"
[ $# -ge 3 ] || wrong_usage "an image, a kit and a folder for the results, please"
image=$(realpath -m "$1") kit=$(realpath -m "$2") out=$(realpath -m "$3")
no_more "${@:4}"
limit=${LIMIT-1800} start_limit=${START_LIMIT-600}

say() { echo "virtual_machine: $*"; }

work=$(mktemp -d)
export MTOOLS_SKIP_CHECK=1 PATH=$PATH:/usr/sbin:/sbin
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM HUP
trap 'exit 125' ERR

[ -r "$image" ] || fail "there is no image $image" 125
end_machine=programs/tools/windows_kit/end_machine.exe
for file in run.cmd disc.iso "$end_machine"; do
    [ -f "$kit/$file" ] || fail "$kit is no kit: it has no $file" 125
done
for program in qemu-system-x86_64 qemu-img mformat sfdisk; do
    command -v "$program" >/dev/null || fail "there is no $program; as root:
    apt-get install --no-install-recommends qemu-system-x86 qemu-utils mtools fdisk" 125
done
format=$(qemu-img info --output=json "$image" 2>"$work/errors" |
    sed -n 's/^    "format": "\(.*\)",*$/\1/p')
[ -n "$format" ] || fail "$image is no disk image: $(cat "$work/errors")" 125
# The partition table says what the system's disk is written in, and so which system it can be.
qemu-img dd -f "$format" -O raw bs=512 count=1 if="$image" of="$work/table"
table=$(od -An -v -tx1 "$work/table" | tr -d ' \n')
case ${table:900:2}-${table:1020} in # its first partition's type, its signature
06-55aa | 0b-55aa | 0c-55aa | 0e-55aa)
    # FAT, as ReactOS has it: it runs C:\atlogon.cmd, which is put there.
    say "a copy of $image"
    qemu-img convert -f "$format" -O raw "$image" "$work/system"
    printf '%s\r\n' '@echo off' \
        'for %%d in (c d e f g h i) do if exist %%d:\kit\run.cmd %%d:\atlogon.cmd' >"$work/find.cmd"
    start=$(od -An -tu4 -j454 -N4 "$work/table")
    mcopy -o -i "$work/system@@$((start * 512))" "$work/find.cmd" ::/atlogon.cmd
    system_format=raw
    ;;
07-55aa)
    # NTFS, as Windows has it: nothing here writes it, so the system looks for the kit by itself.
    say "a copy-on-write clone of $image"
    qemu-img create -q -f qcow2 -b "$image" -F "$format" "$work/system"
    system_format=qcow2
    ;;
*)
    fail "$image has no partition table with a FAT or NTFS partition first" 125
    ;;
esac

# The kit's own disk, and what starts it.
megabytes=$(($(du -sm "$kit" | cut -f1) + 256))
truncate -s "${megabytes}M" "$work/kit"
echo 'start=2048, type=c' | sfdisk -q "$work/kit"
kit_disk=$work/kit@@1M
mformat -F -T $(((megabytes - 1) * 2048)) -h 16 -s 63 -i "$kit_disk" ::
mcopy -s -i "$kit_disk" "$kit" ::/kit
# The pause lets the desktop come up. The serial port opens once: what is left running may hold it.
printf '%s\r\n' '@echo off' 'cd /d "%~dp0kit"' 'ping -n 20 127.0.0.1 >nul' 'call :run >COM1 2>&1' \
    "${end_machine//\//\\}" 'goto :eof' ':run' 'call run.cmd' 'echo exit code %errorlevel%' >"$work/start.cmd"
mcopy -i "$kit_disk" "$work/start.cmd" ::/atlogon.cmd

mkdir -p "$out"
console=$out/console.txt
rm -f "$out"/screen-*.png "$out/report.txt" "$console"
touch "$console"
[ -w /dev/kvm ] || say "there is no KVM here, so every instruction is translated"
say "the machine starts"
# It ends with this script, however that ends. A restart, too, ends it.
coproc machine {
    exec setpriv --pdeathsig KILL qemu-system-x86_64 -machine "pc,accel=${ACCEL-kvm:tcg}" -m "${MEMORY-2048}" -nodefaults \
        -vga std -display none -no-reboot -rtc base=localtime -monitor stdio -serial "file:$console" \
        -drive "file=$work/system,format=$system_format,if=ide,index=0,cache=unsafe" \
        -drive "file=$work/kit,format=raw,if=ide,index=1,cache=unsafe" \
        -drive "file=$kit/disc.iso,format=raw,if=ide,index=2,media=cdrom,readonly=on" >"$work/monitor" 2>"$work/errors"
}
# shellcheck disable=SC2154  # coproc sets them
qemu=$machine_PID monitor=${machine[1]}
picture() {
    last_picture=$out/screen-$(printf %04d "$SECONDS").png
    # It may have ended just now.
    { echo "screendump \"$last_picture\" -f png" >&"$monitor"; } 2>/dev/null || true
}
give_up() {
    picture
    sleep 1
    fail "$1; the last picture is $last_picture" 124
}
SECONDS=0 shown=0
while sleep 1 && kill -0 "$qemu" 2>/dev/null; do
    [ $SECONDS -lt "$limit" ] || give_up "the kit did not end in $limit seconds"
    [ -s "$console" ] || [ $SECONDS -lt "$start_limit" ] ||
        give_up "the system did not start the kit in $start_limit seconds: is the image prepared, does KVM work (ACCEL=tcg)?"
    if [ $((SECONDS / 20)) -ne "$shown" ]; then
        shown=$((SECONDS / 20))
        picture
        say "$SECONDS s: $(tail -n 1 "$console" | tr -d '\r')"
    fi
done
wait "$qemu" || true
mcopy -i "$kit_disk" ::/kit/report.txt "$out" 2>/dev/null || say "there is no report"
result=$(sed -n 's/^exit code \([0-9]*\).*/\1/p' "$console")
[ -n "$result" ] || fail "the machine ended and the kit had not: $(cat "$work/errors" "$console")" 125
say "$SECONDS s, exit code $result; see $out"
exit "$result"
