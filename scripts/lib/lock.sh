# Locks between scripts. The kernel lets go of a lock when the last process ends that has its descriptor,
# however it ends. The lock's file names the last one that had it alone.
# shellcheck shell=bash
: "${command_name:?common.sh comes first}"

# lock_open FILE: opens the lock's file as the descriptor $lock_descriptor, and locks nothing yet.
lock_open() {
  mkdir -p "$(dirname "$1")"
  # shellcheck disable=SC2034 # for the caller
  exec {lock_descriptor}>>"$1"
}

lock_sign() { printf '%s, process %s\n' "$command_name" "$$" >"$1"; }

# lock_holder FILE: who has the lock. A holder writes its name right after getting the lock.
lock_holder() {
  sleep 0.3
  grep . "$1" || echo "another script"
}

# lock_take SECONDS DESCRIPTOR FILE WHAT [--shared]: has the lock. Once that has taken SECONDS it is told
# for whom it waits.
lock_take() {
  local how=("${@:5}" "$2")
  flock --timeout "$1" "${how[@]}" && return
  say "waiting for $(lock_holder "$3"), which $4"
  # In the background, so that a signal to this script alone ends it now. Where a subshell waits, the script acts on the
  # signal once that has the lock and has done its work: the lock is inherited by what works there.
  setpriv --pdeathsig TERM flock "${how[@]}" &
  wait "$!"
}

# lock_wait DESCRIPTOR FILE WHAT: takes the lock exclusively, waiting until it is free.
lock_wait() {
  lock_take 0 "$@"
  lock_sign "$2"
}

# lock_alone FILE WHAT: the same until the shell ends, and all that it started, which inherits the descriptor: a
# compiler or an installation that lost its script works on, and the next one must not come into its way.
lock_alone() {
  lock_open "$1"
  lock_wait "$lock_descriptor" "$@"
}

# lock_script FILE WHAT: the same until the script ends, whatever it leaves running.
lock_script() {
  lock_alone "$@"
  # From here on one child has the lock. It ends with the script, also with one that has ended already.
  # shellcheck disable=SC2016 # a script text for the inner shell
  setsid setpriv --pdeathsig KILL sh -c '[ "$PPID" -ne "$1" ] || exec sleep infinity' sh "$$" >/dev/null 2>&1 &
  # What the script does at its end still has the lock.
  at_very_end end_child "$!"
  exec {lock_descriptor}>&-
}
