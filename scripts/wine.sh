# A 32-bit Wine for the Windows tests, in a Debian root of its own; sourced by ./test.
#
# The root stands in the user's cache folder and is made once (a minute, 1.1 GB). A run works on a
# throw-away copy of it, in mount and process namespaces of its own: nothing is left mounted or
# running, whatever the run does, and every run begins with the same empty registry.
# shellcheck shell=bash

wine_root=${XDG_CACHE_HOME:-$HOME/.cache}/quillkit/wine-root

# make_wine_root: makes the root from the package source that this machine itself uses. It appears
# under its name when it is complete.
make_wine_root() {
  local release source parts status=0
  # shellcheck disable=SC2016 # apt-get fills $(REPO_URI) in
  release=$(. /etc/os-release && echo "${VERSION_CODENAME-}")
  source=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' \
    "Codename: $release" | head -n 1)
  if [ -z "$source" ]; then
    echo "No package source of Debian $release on this machine" >&2
    return 1
  fi
  echo "Making a Debian root with Wine in $wine_root"
  mkdir -p "$(dirname "$wine_root")"
  parts=$(mktemp -d "$wine_root.XXXXXX")
  as_root debootstrap --arch=i386 --variant=minbase --include=wine,wine32 "$release" "$parts" \
    "$source" >"$parts.log" 2>&1 || status=$?
  if [ "$status" = 0 ] && { [ -d "$wine_root" ] || as_root mv -T "$parts" "$wine_root"; }; then
    as_root chmod 755 "$wine_root"
    rm -f "$parts.log"
    return 0
  fi
  tail -n 5 "$parts.log" >&2
  as_root rm -rf "$parts"
  rm -f "$parts.log"
  return 1
}

# prepare_wine: whether Windows programs can be run.
prepare_wine() {
  { [ -d "$wine_root" ] || make_wine_root; } && in_wine /tmp wineboot --init
}

# in_wine FOLDER PROGRAM [arguments]: runs a Windows program in a folder of this machine. Its status.
in_wine() {
  local folder
  folder=$(realpath "$1")
  shift
  # shellcheck disable=SC2016 # the inner shell's own arguments
  as_root unshare --mount --pid --fork --kill-child bash -euc '
    root=$1 folder=$2
    shift 2
    mount -t tmpfs tmpfs /mnt
    mkdir /mnt/changes /mnt/work /mnt/root
    mount -t overlay overlay -o "lowerdir=$root,upperdir=/mnt/changes,workdir=/mnt/work" /mnt/root
    mkdir -p /mnt/root/program
    mount --bind "$folder" /mnt/root/program
    mount -t proc proc /mnt/root/proc
    status=0
    chroot /mnt/root env -i HOME=/root PATH=/usr/bin:/bin WINEDEBUG=-all \
      sh -c "cd /program && exec wine \"\$@\"" sh "$@" || status=$?
    exit "$status"
  ' bash "$wine_root" "$folder" "$@"
}
