# Sourced first by every script of this folder's parent: environment, paths, messages.
#
# The scripts work from an empty environment (no HOME, no exported PATH), as a service or a fresh
# container starts them.
# shellcheck shell=bash
set -euo pipefail

export PATH="${PATH:-/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin}"
if [ -z "${HOME:-}" ]; then
  HOME=$(getent passwd "$(id -u)" | cut -d: -f6)
  [ -n "$HOME" ] && [ -d "$HOME" ] || HOME=/tmp
  export HOME
fi

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck disable=SC2034 # for the scripts that source this
build=$root/build

say() { printf '%s\n' "-- $*"; }

fail() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

# as_root COMMAND ARGS: package set-up alone needs this.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    fail "'$1' needs root rights, and this machine has no sudo: run the script once as root"
  fi
}

# Commands that undo what this script started, run in reverse order when it ends, however it ends.
at_exit_commands=()
at_exit() { at_exit_commands=("$*" "${at_exit_commands[@]}"); }
run_at_exit() {
  local command
  for command in "${at_exit_commands[@]}"; do eval "$command" || true; done
}
trap run_at_exit EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
