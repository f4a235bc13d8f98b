# The two stages that play recordings in the real program: its page, and its logs.
# shellcheck shell=bash
: "${root:?common.sh comes first}"
# shellcheck source=recordings.sh
source "$root/scripts/lib/recordings.sh"

# Seconds after which a script that plays a recording is stuck; one takes half a minute to two.
stuck=600

# Recorded traffic of a car and a boat, which not everyone has. If it is next to the checkout, it is played
# too.
recorded_car=$root/../shared/data/car-11bit.log
recorded_boat=$root/../shared/data/boat-29bit.log

# replay_case NAME RECORDING [OPTION...], log_case likewise.
replay_case() { count_command "$1" timeout "$stuck" "$root/scripts/replay-check" "${@:2}"; }
log_case() { count_command "$1" timeout "$stuck" "$root/scripts/log-check" "${@:2}"; }

stage_replay() {
  local car boat both
  build_before_commands || return
  car=$(own_recording car) && boat=$(own_recording boat) && both=$(own_recording both) || return
  replay_case replay "$car"
  # The adapter's clock wraps on the way.
  replay_case replay-wrap "$car" --clock-start 55000
  replay_case replay-29 "$boat" --ids 29 --adapter kvaser
  replay_case replay-both "$both" --ids 29
  [ ! -r "$recorded_car" ] || replay_case replay-recorded "$recorded_car"
  [ ! -r "$recorded_boat" ] || replay_case replay-recorded-29 "$recorded_boat" --ids 29 --adapter kvaser
}

stage_logs() {
  local car boat
  build_before_commands tolvane_office || return
  car=$(own_recording car) && boat=$(own_recording boat) || return
  # All roll over, and the adapter's clock wraps on the way.
  log_case log-csv "$car" --times 2 --clock-start 50000
  log_case log-xlsx "$car" --times 2 --clock-start 50000 --format xlsx
  # Three files: what the second one's identifiers lose comes in the third. The board's stamps turn
  # negative on the way.
  local on_board=(--ids 29 --adapter interface --times 17 --speed 20 --clock-start 2100000000)
  log_case log-29 "$boat" "${on_board[@]}"
  log_case log-again-11 "$car" --times 2 --speed 10 --clock-start 50000 --again
  log_case log-again "$boat" --ids 29 --adapter kvaser --times 17 --speed 20 --again
  [ ! -r "$recorded_car" ] || log_case log-recorded "$recorded_car" --times 2 --clock-start 50000
  [ ! -r "$recorded_boat" ] || log_case log-recorded-29 "$recorded_boat" "${on_board[@]}"
}
