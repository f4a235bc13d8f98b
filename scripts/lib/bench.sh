# The simulated bench: the options that choose it, its libraries in the prefix's system folder, and the
# file that describes it.
# shellcheck shell=bash
# shellcheck disable=SC2154 # opt is from options.sh
: "${build:?common.sh comes first}"

# bench_options IDS-TEXT CLOCK-START [ADAPTER-TEXT]: the options that every run on the bench has.
bench_options() {
  option adapter A "canusb|interface|kvaser" "" \
    "the adapter that is plugged in: ${3:-canusb unless told otherwise, interface or kvaser}"
  opt[adapter]=canusb
  option ids BITS "11|29|both" "" "$1"
  opt[ids]=11
  option clock-start N 0..4294967295 "$2" "where the adapter's clock stands when the run begins, in its own \
ticks; CANUSB's starts over at 60,000, the upper half of Interface's and Kvaser's range is negative"
}

# Rates in kbit/s that the kinds lack, of those of the program's settings.
declare -A rates_lacking=([canusb]="" [interface]="10 20 800" [kvaser]="20 800")

# bench_has_rate: whether the adapter of the options has their rate.
bench_has_rate() { [[ -z ${opt[rate]} || " ${rates_lacking[${opt[adapter]}]} " != *" ${opt[rate]} "* ]]; }

# bench_install ARCH [PREFIX]: copies the libraries to where the program looks for the vendors' libraries.
bench_install() { cp "$build/windows-$1/simulator/"*.dll "${2:-$WINEPREFIX}/drive_c/windows/system32/"; }

# bench_install_alone ARCH PREFIX LIBRARY: the same for this one, without debug information; the others are gone. For
# measurements: the program loads and asks each library that it finds.
bench_install_alone() {
  local folder=$2/drive_c/windows/system32 library
  for library in "$build/windows-$1/simulator/"*.dll; do rm -f "$folder/${library##*/}"; done
  arch_strip "$1" "$build/windows-$1/simulator/$3" "$folder"
}

# bench_write FILE LOG [TIMES [SPEED]]: the bench of the options above, on the recording LOG, or on the
# synthetic vehicle when LOG is empty, or on the live bus of live.sh when it is "-". The recording is played
# TIMES times over (1; 0 without end), bus time running SPEED times as fast (1). The bus has the rate of the option,
# or 500 kbit/s. What the libraries have reported of an earlier bench there goes.
bench_write() {
  local file=$1 log=$2 times=${3:-1} speed=${4:-1} section format
  rm -f -- "${file%.ini}-report.txt"
  case ${opt[adapter]:-canusb} in
    canusb) section="canusb 1" ;;
    interface) section="interface 1" ;;
    kvaser) section="kvaser 0" ;;
  esac
  case ${opt[ids]:-11} in
    11) format=standard ;;
    29) format=extended ;;
    both) format=both ;;
  esac
  {
    printf '[%s]\nclock_start = %s\n\n[bus]\nbit_rate = %s000\n' "$section" \
      "${opt[clock-start]:-0}" "${opt[rate]:-500}"
    if [ "$log" = - ]; then
      printf 'source = live\nlog = live\n'
    elif [ -n "$log" ]; then
      printf 'source = log\nlog = Z:%s\nrepeat = %s\n' "$log" "$times"
    else
      printf 'source = vehicle\nformat = %s\n' "$format"
    fi
    printf '\n[bench]\nreport = Z:%s\nspeed = %s\n' "${file%.ini}-report.txt" "$speed"
  } >"$file"
}

# bench_bears_pauses FILE: gives the bench FILE the largest queue there is, a million frames, so that a check of contents
# does not fail when the machine pauses for seconds. What a real queue loses is for tests/soak/run to say.
bench_bears_pauses() { printf 'queue = 1000000\n' >>"$1"; }

# bench_counts REPORT: sets $delivered and $dropped to the frames of the last run there; 1 without a run.
bench_counts() {
  local run
  run=$(grep ' run ' "$1" | tail -n 1)
  [[ $run =~ delivered=([0-9]+)\ dropped=([0-9]+) ]] || return 1
  # shellcheck disable=SC2034 # for whoever calls it
  delivered=${BASH_REMATCH[1]} dropped=${BASH_REMATCH[2]}
}

# bench_drops REPORT: says of a recording what the page and the logs of the last run lack.
bench_drops() {
  local delivered dropped
  bench_counts "$1" && [ "$dropped" -gt 0 ] || return 0
  say "$(counted "$dropped" frame) dropped as the adapter's queue was full; $delivered received"
}

# bench_judges FILE: fails when the libraries of the bench FILE reported a fault of the program.
bench_judges() {
  local report=${1%.ini}-report.txt faults
  [ -s "$report" ] || fail "the simulated libraries left no report in $report"
  faults=$(grep ' fault: ' "$report") || return 0
  fail "calls that no adapter takes: $faults"
}
