# A 32-bit Wine for the Windows tests, in a Debian root of its own; sourced by ./test.
#
# The root is in the user's cache folder. It is made once, which takes some minutes and 1.5 GB. Its
# packages are unpacked but not configured, so that a machine that cannot run 32-bit programs can make
# it too. Such a machine runs Wine in an emulator (emulator.sh). Each run uses a temporary copy of the
# root. It leaves no mounts or processes, and every run starts with the same registry.
# shellcheck shell=bash

wine_cache=${XDG_CACHE_HOME:-$HOME/.cache}/quillkit
wine_root=$wine_cache/wine-root

# The environment of a run. Wine starts no services: every run would wait for them, and no test needs
# them.
wine_environment=(HOME=/root PATH=/usr/lib/wine:/usr/bin:/bin WINEDEBUG=-all
  "WINEDLLOVERRIDES=mscoree,mshtml,wineboot.exe=")

# Creates Wine's folder and registry once. On a slow machine Wine reports time-outs but continues, so
# the check is whether a program runs afterwards.
wine_first_run='WINEDLLOVERRIDES=mscoree,mshtml= wine wineboot --init; wineserver -w
  wine cmd /c exit'

# make_wine_root: makes the root from the package source of this machine. It is renamed to its final
# name when it is complete.
make_wine_root() (
  release=$(. /etc/os-release && echo "${VERSION_CODENAME-}")
  # shellcheck disable=SC2016 # apt-get fills $(REPO_URI) in
  source=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' \
    "Codename: $release" | head -n 1)
  if [ -z "$source" ]; then
    echo "Cannot find a package source of Debian $release on this machine" >&2
    return 1
  fi
  echo "Making a Debian root with Wine in $wine_root"
  mkdir -p "$wine_cache"
  parts=$(mktemp -d "$wine_root.XXXXXX")
  trap 'as_root rm -rf "$parts" "$parts.log"' EXIT
  # shellcheck disable=SC2016 # expanded by the inner shell
  if ! as_root bash -euc '
    release=$1 parts=$2 source=$3
    debootstrap --foreign --arch=i386 --variant=minbase --include=wine32 \
      "$release" "$parts" "$source"
    for package in "$parts"/var/cache/apt/archives/*.deb; do
      dpkg-deb --fsys-tarfile "$package" | tar -x -C "$parts" --keep-directory-symlink
      rm "$package"
    done
    rm -rf "$parts/proc" "$parts/debootstrap"
    mkdir -p "$parts/proc" "$parts/dev" "$parts/tmp" "$parts/root" "$parts/program"
    echo "root:x:0:0::/root:/bin/sh" >"$parts/etc/passwd"
    echo "127.0.0.1 localhost" >"$parts/etc/hosts"
    windows=$parts/root/.wine/drive_c/windows/system32
    mkdir -p "$windows"
    cp "$parts/usr/i686-w64-mingw32/lib/zlib1.dll" "$windows"
    printf "%s\n" "WINE REGISTRY Version 2" "" "[Software\\\\Wine\\\\Drivers]" \
      "\"Graphics\"=\"null\"" >"$parts/root/.wine/user.reg"
    chmod 755 "$parts"
    mv -T "$parts" "$4"
  ' bash "$release" "$parts" "$source" "$wine_root" >"$parts.log" 2>&1; then
    tail -n 5 "$parts.log" >&2
    return 1
  fi
)

# prepare_wine: makes the root if needed. Fails if Windows programs cannot run.
prepare_wine() {
  [ -d "$wine_root" ] || make_wine_root || return 1
  if ! as_root chroot "$wine_root" /bin/true 2>/dev/null; then
    echo "This machine cannot run 32-bit programs; using an emulated machine"
    . scripts/emulator.sh
    prepare_emulator
  elif [ ! -e "$wine_root/root/.wine/system.reg" ]; then
    in_root keep /tmp sh -c "$wine_first_run"
  fi
}

# in_wine FOLDER PROGRAM [arguments]: runs a Windows program in a folder. Returns its status.
in_wine() {
  local folder=$1
  shift
  if [ "$(type -t in_emulator)" = function ]; then
    in_emulator "$folder" wine "$@"
  else
    in_root discard "$folder" wine "$@"
  fi
}

# in_root keep|discard FOLDER COMMAND...: runs a command in the root, or in a copy that is discarded,
# with the folder as /program. Its mounts and processes are removed when it ends.
in_root() {
  local changes=$1 folder
  folder=$(realpath "$2")
  shift 2
  # shellcheck disable=SC2016 # expanded by the inner shell
  as_root unshare --mount --pid --fork --kill-child bash -euc '
    changes=$1 root=$2 folder=$3
    shift 3
    mount -t tmpfs tmpfs /mnt
    mkdir /mnt/changes /mnt/work /mnt/root
    if [ "$changes" = keep ]; then
      mount --bind "$root" /mnt/root
    else
      mount -t overlay overlay -o "lowerdir=$root,upperdir=/mnt/changes,workdir=/mnt/work" /mnt/root
    fi
    mount --bind "$folder" /mnt/root/program
    mount --rbind /dev /mnt/root/dev
    mount -t proc proc /mnt/root/proc
    mount -t tmpfs tmpfs /mnt/root/tmp
    status=0
    chroot /mnt/root sh -c "cd /program && exec env -i \"\$@\"" sh "$@" || status=$?
    exit "$status"
  ' bash "$changes" "$wine_root" "$folder" "${wine_environment[@]}" "$@"
}
