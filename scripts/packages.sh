# Debian packages that a script of this tree needs; sourced by those scripts.
# shellcheck shell=bash

# as_root COMMAND...: runs a command as root, directly or through sudo. Fails if neither works.
as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif ! command -v sudo >/dev/null; then
    return 1
  elif [ -t 0 ]; then
    sudo -- "$@"
  else
    sudo -n -- "$@"
  fi
}

# missing_packages PACKAGE...: prints the packages that are not installed.
missing_packages() {
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      echo "$package"
  done
}

# install_packages PACKAGE...: installs missing packages. If that fails, lists them on standard error
# and fails. On a system that is not Debian, lists all on standard error and succeeds.
install_packages() {
  if ! command -v dpkg-query >/dev/null; then
    echo "Not a Debian system. Install the equivalents of these Debian packages: $*" >&2
    return 0
  fi
  local missing
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -gt 0 ] || return 0
  echo "Installing ${missing[*]}"
  local log
  log=$(mktemp)
  if as_root apt-get update -q >"$log" 2>&1 &&
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends \
      "${missing[@]}" >>"$log" 2>&1; then
    rm -f "$log"
    return 0
  fi
  {
    tail -n 5 "$log"
    echo "These packages are missing and could not be installed: ${missing[*]}"
    echo "Install them and start again:  apt-get install ${missing[*]}"
  } >&2
  rm -f "$log"
  return 1
}

# Compilers run through ccache if it is installed.
use_ccache() {
  command -v ccache >/dev/null || return 0
  export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
}
