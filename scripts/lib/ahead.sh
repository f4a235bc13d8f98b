# Stages that take long and disturb no other one are begun early, in the time that programs under Wine and
# installations leave while they mostly wait, at the lowest priority.
# shellcheck shell=bash
: "${results:?stages.sh comes first}" "${stages[*]-}"

# When a line begins, and its steps: they run in turn, the lines beside each other. What only compiles begins with the
# first stage; what runs the program waits for stages that leave it a processor. A step that is no stage, a function
# prepare_STAGE, does what that stage would do first, and then finds done.
chains_ahead=("first prepare_x86 release" "window fresh")
# By step, the process that works on it.
declare -A process_ahead=()

is_chosen() { [[ " ${stages[*]} " == *" $1 "* ]]; }

# begin_ahead WHEN: `first`, or a stage that begins. A stage that is alone has nobody to be beside.
begin_ahead() {
  local chain
  [ ${#stages[@]} -gt 1 ] || return 0
  mkdir -p "$results"
  for chain in "${chains_ahead[@]}"; do
    # shellcheck disable=SC2086 # a list of words
    [ "${chain%% *}" != "$1" ] || begin_chain ${chain#* }
  done
}

# can_be_ahead STAGE: one that is chosen, and asks nobody for a password, as nobody could answer it in the background.
can_be_ahead() { is_chosen "$1" && { [[ " $(stage_groups "$1") " != *" roots "* ]] || rights_unasked; }; }

begin_chain() {
  local step chosen=()
  for step in "$@"; do
    ! can_be_ahead "${step#prepare_}" || chosen+=("$step")
  done
  [ ${#chosen[@]} -gt 0 ] || return 0
  for step in "${chosen[@]}"; do rm -f "$results/$step".{txt,counts}; done
  set -m
  work_ahead "${chosen[@]}" >/dev/null 2>&1 </dev/null &
  set +m
  at_exit end_child "$!"
  for step in "${chosen[@]}"; do process_ahead[$step]=$!; done
}

# work_ahead STEP...
work_ahead() {
  local step
  # shellcheck disable=SC2034 # for run_at_exit
  at_exit_commands=(stop_running)
  trap run_at_exit EXIT
  trap 'exit 143' TERM
  renice -n 19 "$BASHPID"
  for step in "$@"; do
    case $step in
      # In a group of its own, so that a signal does not wait for its end.
      prepare_*) in_group can_have "$step" || true ;;
      *) stage_ahead "$step" ;;
    esac
  done
}

stage_ahead() {
  passed=0 failed=0 skipped=0
  run_stage "$1" >"$results/$1.txt" 2>&1
  echo "$passed $failed $skipped" >"$results/$1.counts"
}

is_ahead() { [ -n "${process_ahead[$1]:-}" ]; }

# collect_stage STAGE: waits until it has ended, tells what it said, and counts what it counted.
collect_stage() {
  local p f s
  until [ -s "$results/$1.counts" ] || [ ! -e "/proc/${process_ahead[$1]}" ]; do sleep 1; done
  [ ! -e "$results/$1.txt" ] || cat "$results/$1.txt"
  if [ -s "$results/$1.counts" ]; then
    read -r p f s <"$results/$1.counts"
    passed=$((passed + p)) failed=$((failed + f)) skipped=$((skipped + s))
  else
    count_failed "$1 ended early"
  fi
}
