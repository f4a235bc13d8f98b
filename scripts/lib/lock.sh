# Locks between scripts. The kernel lets go of a lock when its holder ends, however it ends; whatever
# outlives the holder must not inherit the descriptor. The lock's file names the last holder.
# shellcheck shell=bash
: "${command_name:?common.sh comes first}"

# lock_open FILE: opens the lock's file as the descriptor $lock_descriptor, and locks nothing yet.
lock_open() {
  mkdir -p "$(dirname "$1")"
  # shellcheck disable=SC2034 # for the caller
  exec {lock_descriptor}>>"$1"
}

lock_sign() { printf '%s, process %s\n' "$command_name" "$$" >"$1"; }

# lock_holder FILE: who has the lock. He signs right after he gets it.
lock_holder() {
  sleep 0.3
  cat "$1"
}

# lock_wait DESCRIPTOR FILE WHAT: has the lock alone, after waiting for whoever has it.
lock_wait() {
  if ! flock -n "$1"; then
    say "waiting for $(lock_holder "$2"), which $3"
    flock "$1"
  fi
  lock_sign "$2"
}

# lock_alone FILE WHAT: the same until the script ends, or the subshell.
lock_alone() {
  lock_open "$1"
  lock_wait "$lock_descriptor" "$@"
}
