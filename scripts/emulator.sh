# An emulated machine for the 32-bit Wine of wine.sh; sourced by wine.sh. It is used on machines that
# cannot run 32-bit programs. It boots a Debian kernel, whose first process runs the command. The
# Wine root is one disk, the folder is another.
# shellcheck shell=bash disable=SC2154 # wine.sh's variables

emulator_kernel=$wine_cache/kernel
emulator_disk=$wine_cache/wine-root.img

# prepare_emulator: makes the emulated machine once. Fails if it cannot run Windows programs.
prepare_emulator() {
  install_packages qemu-system-x86 e2fsprogs || return 1
  [ -e "$emulator_kernel" ] || fetch_kernel || return 1
  [ -e "$emulator_disk" ] || make_emulator_disk
}

# fetch_kernel: unpacks the Debian kernel for virtual machines. The drivers for the emulated devices
# are built in.
fetch_kernel() (
  folder=$(mktemp -d "$wine_cache/kernel.XXXXXX")
  trap 'rm -rf "$folder"' EXIT
  as_root apt-get update -q >/dev/null || true
  package=$(apt-cache depends linux-image-cloud-amd64 |
    sed -n 's/^ *Depends: \(linux-image-[0-9].*\)$/\1/p' | head -n 1)
  cd "$folder" || return 1
  if ! { apt-get download "$package" && dpkg-deb -x ./*.deb .; } >log 2>&1; then
    cat log >&2
    echo "Cannot find a kernel for the emulated machine" >&2
    return 1
  fi
  mv boot/vmlinuz-* "$emulator_kernel"
)

# make_emulator_disk: makes the disk from the root and runs Wine there once to create its registry.
# It is renamed to its final name when it is complete.
make_emulator_disk() (
  disk=$(mktemp "$emulator_disk.XXXXXX")
  trap 'rm -f "$disk"' EXIT
  as_root tee "$wine_root/run-program" >/dev/null <<'SCRIPT'
#!/bin/bash
# The only process that the emulated machine starts. It runs the command on the second disk.
mount -t proc proc /proc
mount -t devtmpfs dev /dev
mount -t tmpfs tmpfs /tmp
mount /dev/nvme0n2 /program
stty -F /dev/ttyS1 raw
cd /program
set -o pipefail
bash ./.command </dev/null 2>&1 | cat >/dev/ttyS1
echo "status $?" >/dev/ttyS1
sync
echo o >/proc/sysrq-trigger
sleep 60
SCRIPT
  as_root chmod 755 "$wine_root/run-program"
  truncate -s 4G "$disk"
  as_root mke2fs -q -t ext4 -m 0 -O ^has_journal -d "$wine_root" "$disk" &&
    emulate "$disk" off "" sh -c "$wine_first_run" && mv "$disk" "$emulator_disk"
)

# in_emulator FOLDER COMMAND...: runs a command with a copy of the folder as /program. Returns its
# status.
in_emulator() { emulate "$emulator_disk" on "$@"; }

# emulate DISK DISCARD FOLDER COMMAND...: the same with another disk, whose changes are discarded if
# DISCARD is "on". If FOLDER is empty, /program is empty. The machine is stopped when this shell exits.
emulate() (
  disk=$1 discard=$2 folder=$3 accelerator=tcg
  shift 3
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  mkdir "$work/program"
  [ -z "$folder" ] || cp -a "$folder/." "$work/program"
  echo "exec env -i ${wine_environment[*]@Q} ${*@Q}" >"$work/program/.command"
  truncate -s 1G "$work/disk"
  mke2fs -q -t ext4 -m 0 -O ^has_journal -d "$work/program" "$work/disk"
  [ ! -w /dev/kvm ] || accelerator=kvm
  setpriv --pdeathsig TERM timeout --foreground 3600 qemu-system-x86_64 -accel "$accelerator" \
    -m 2048 -nodefaults -display none -no-reboot -kernel "$emulator_kernel" \
    -append "console=ttyS0 panic=-1 root=/dev/nvme0n1 rw init=/run-program" \
    -drive "file=$disk,if=none,id=root,format=raw,snapshot=$discard,cache=unsafe" \
    -drive "file=$work/disk,if=none,id=program,format=raw,cache=unsafe" \
    -device nvme,id=disks,serial=disks -device nvme-ns,drive=root,bus=disks,nsid=1 \
    -device nvme-ns,drive=program,bus=disks,nsid=2 \
    -serial "file:$work/console" -serial "file:$work/output" </dev/null >&2 || true
  status=$(sed -n '$s/^status \([0-9]*\)$/\1/p' "$work/output")
  if [ -n "$status" ]; then
    sed '$d' "$work/output"
    return "$status"
  fi
  cat "$work/output"
  tail -n 5 "$work/console" >&2
  echo "The emulated machine ended before the program" >&2
  return 1
)
