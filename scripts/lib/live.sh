# A live bus: the lines of the script's standard input reach the simulated adapters through files of the program's
# folder, which a process of its own writes. A program under Wine cannot be given a pipe that it never waits for.
# shellcheck shell=bash
# shellcheck disable=SC2154 # folder is set by whoever starts the program
: "${build:?common.sh comes first}"

live_file_size="8 MiB"

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
  local delivered dropped lines
  bench_counts "$1" && lines=$(grep ' live ' "$1" | tail -n 1) || return 0
  [[ $lines =~ frames=([0-9]+)\ refused_lines=([0-9]+)\ files_passed_over=([0-9]+) ]] || return 0
  local frames=${BASH_REMATCH[1]} refused=${BASH_REMATCH[2]} passed_over=${BASH_REMATCH[3]}
  say "$(counted "$frames" frame) came: $delivered received," \
    "$dropped dropped as the adapter's queue was full; $(counted "$refused" "bad line") left out"
  [ "$passed_over" -eq 0 ] ||
    say "lines have come faster than the adapter took them: $(counted "$passed_over" file) of them," \
      "of $live_file_size each, went unread"
}
