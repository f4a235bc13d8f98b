# A live bus: the lines of the script's standard input reach the simulated adapters through files of the program's
# folder, which a process of its own writes. A program under Wine cannot be given a pipe that it never waits for.
# shellcheck shell=bash
# shellcheck disable=SC2154 # folder is set by whoever starts the program
: "${build:?common.sh comes first}"

# live_take: the standard input is the live bus, and nothing that the script starts reads from it.
live_take() {
  [[ -e /dev/stdin && ! -d /dev/stdin && ! -t 0 ]] ||
    fail "--log - takes lines from a pipe, as in: candump -L can0 | scripts/demo --log -"
  exec {live_lines}<&0 </dev/null
}

# live_begin: hands the lines on from here to their end, or to that of the script.
live_begin() {
  rm -f "$folder"/live.*
  (drop_lock && exec setpriv --pdeathsig TERM "$root/scripts/lib/python-run" "$root/scripts/lib/live_feed.py" \
    "$folder/live" <&"$live_lines") &
  at_exit end_child "$!"
  exec {live_lines}<&-
}

# live_counts REPORT: says what the adapter made of the lines in its last run.
live_counts() {
  local run lines
  run=$(grep ' run ' "$1" | tail -n 1) && lines=$(grep ' live ' "$1" | tail -n 1) || return 0
  [[ $run =~ delivered=([0-9]+)\ dropped=([0-9]+) ]] || return 0
  local delivered=${BASH_REMATCH[1]} dropped=${BASH_REMATCH[2]}
  [[ $lines =~ frames=([0-9]+)\ refused_lines=([0-9]+) ]] || return 0
  say "$(counted "${BASH_REMATCH[1]}" frame) came: $delivered received," \
    "$dropped dropped as the adapter's queue was full; $(counted "${BASH_REMATCH[2]}" "bad line") left out"
}
