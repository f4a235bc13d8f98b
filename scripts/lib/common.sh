# Sourced first by every script of this folder's parent: environment, paths, messages.
#
# The scripts work from an empty environment (no HOME, no exported PATH), as a service or a fresh
# container starts them.
# shellcheck shell=bash
set -euo pipefail

export PATH="${PATH:-/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin}"
# An ordinary user's PATH lacks the folders of administrators' programs, such as debootstrap; each is beside a `bin`.
add_sbin_folders() {
  local folder folders
  IFS=: read -ra folders <<<"$PATH"
  for folder in "${folders[@]}"; do
    [[ $folder != */bin || :$PATH: == *":${folder%bin}sbin:"* ]] || PATH+=:${folder%bin}sbin
  done
}
add_sbin_folders
if [ -z "${HOME:-}" ]; then
  HOME=$(getent passwd "$(id -u)" 2>/dev/null | cut -d: -f6) || HOME=""
  [ -n "$HOME" ] && [ -d "$HOME" ] || HOME=/tmp
  export HOME
fi

# With it `cd` says where it went, and may go elsewhere.
unset CDPATH
# Whatever the path ends with.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd && echo /)
root=${root%??}
build=$root/build
# What this script is called in messages.
# shellcheck disable=SC2034 # for the scripts that source this
command_name=$(realpath --relative-to="$root" "$0")

say() { printf '%s\n' "-- $*"; }

# counted NUMBER NOUN: "1 second", "2 seconds".
counted() { printf '%s %s%s\n' "$1" "$2" "$([ "$1" -eq 1 ] || echo s)"; }

fail() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

# run_python SCRIPT ARGS: runs one of the project's scripts, given by its path in the project.
run_python() { "$root/scripts/lib/python-run" "$root/$1" "${@:2}"; }

# as_root COMMAND ARGS: needed only for packages and Debian roots.
as_root() {
  local become_root
  find_become_root
  [ ${#become_root[@]} -eq 0 ] || command -v sudo >/dev/null ||
    fail "'$1' needs root rights, and this machine has no sudo: run the script once as root"
  "${become_root[@]}" "$@"
}

# find_become_root: sets $become_root to the words that stand before a command of root's. A process group in the
# background of a terminal would be stopped, without a word, when it asks there for a password. sudo takes the
# environment away, and what fetches packages needs the proxies in it.
find_become_root() {
  local state group terminals_group proxy proxies=()
  become_root=()
  [ "$(id -u)" -ne 0 ] || return 0
  become_root=(sudo)
  if state=$(cat /proc/self/stat 2>/dev/null); then
    read -r _ _ group _ _ terminals_group _ <<<"${state##*) }"
    [[ $terminals_group -le 0 || $terminals_group -eq $group ]] || become_root+=(-n)
  fi
  for proxy in http_proxy https_proxy no_proxy; do
    [ -z "${!proxy:-}" ] || proxies+=("$proxy=${!proxy}")
  done
  [ ${#proxies[@]} -eq 0 ] || become_root+=(env "${proxies[@]}")
}

# rights_unasked: whether there are root rights without a password, also once sudo no longer remembers one.
rights_unasked() { [ "$(id -u)" -eq 0 ] || sudo -k -n true 2>/dev/null; }

# commit_obstacle: prints why git finds no commit here, nothing when it does. It may warn though it does, and may advise
# behind the reason.
commit_obstacle() {
  local said
  said=$(git -C "$root" rev-parse --verify HEAD 2>&1 >/dev/null) || grep -m 1 '^fatal: ' <<<"$said" || echo "$said"
}

# need_folder FOLDER ADVICE: makes the folder, or ends the script.
need_folder() {
  if ! mkdir -p -- "$1" 2>/dev/null || [ ! -w "$1" ]; then
    fail "the folder $1 cannot be written: $2"
  fi
}

# path_fault PATH: prints why the simulated bench cannot be told the path, nothing when it can: its file is UTF-8, a
# line to a path.
path_fault() {
  local LC_ALL=C
  if [[ $1 == *[[:cntrl:]]* ]]; then
    echo "holds a line break or another control character"
  elif ! iconv -f UTF-8 -t UTF-8 <<<"$1" >/dev/null 2>&1; then
    echo "is not UTF-8"
  fi
}

# need_build_folder: checks the build folder and its path, before anything is installed, built or started.
need_build_folder() {
  local cache home fault
  fault=$(path_fault "$root")
  [ -z "$fault" ] || fail "the path of the project $(printf %q "$root") $fault: copy it to another place"
  need_folder "$build" "copy the project to a place where you may write, and start again there"
  for cache in "$build"/*/CMakeCache.txt; do
    [ -e "$cache" ] || continue
    [ -w "$cache" ] || fail "$build was made by another user: remove that folder and start again"
    home=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache")
    [ "$home" -ef "$root" ] ||
      fail "$build was made for $home and does not serve here: remove that folder and start again"
  done
}

# Commands that undo what this script started, run in reverse order when it ends, however it ends. They
# find its status in $exit_status.
at_exit_commands=()
at_exit() {
  catch_the_end
  at_exit_commands=("$*" "${at_exit_commands[@]}")
}
# After all others.
at_very_end() {
  catch_the_end
  at_exit_commands+=("$*")
}
# end_child PROCESS: ends what this script started in the background.
end_child() {
  kill "$1" 2>/dev/null || true
  wait "$1" 2>/dev/null || true
}
run_at_exit() {
  # shellcheck disable=SC2034 # for the commands
  local exit_status=$? command
  # A second Ctrl-C must not leave half of it running.
  trap '' INT TERM HUP
  for command in "${at_exit_commands[@]}"; do eval "$command" || true; done
}
# can_have COMMAND ARGS: whether it succeeds. It runs in a subshell, so a failure there does not end the script, and
# everything it starts is ended again, also behind a signal.
can_have() {
  (
    at_exit_commands=()
    trap run_at_exit EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    "$@"
  )
}
# catch_the_end: from here on a signal ends this script by its number, and what was started is undone. Not while files
# are still read: a trap that comes while bash reads a command substitution ends in a complaint of bash.
catch_the_end() {
  [ "$BASHPID" = "$$" ] || return 0
  trap run_at_exit EXIT
  trap 'exit 129' HUP
  trap 'exit 130' INT
  trap 'exit 143' TERM
}
