# The stages of scripts/test. A stage adds to the three counts; one that cannot be built counts as one
# failure, and the next stage still runs.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}"
# The chosen stages in their order.
stages=()

# shellcheck source=stage_commands.sh
source "$root/scripts/lib/stage_commands.sh"
# shellcheck source=stage_recordings.sh
source "$root/scripts/lib/stage_recordings.sh"

passed=0 failed=0 skipped=0
results=$build/test-results
# A line for each thing that failed, told again at the end.
failures=$results/failures.txt
# shellcheck source=ahead.sh
source "$root/scripts/lib/ahead.sh"

# The stages in their order, the quick ones first, each with the groups of Debian packages that it needs.
# Each is a function stage_NAME.
stage_table=(
  "checks      native_tests checks foreign_recordings"
  "unit        native_tests books can_tools"
  "sanitizers  native_tests clang books can_tools"
  "fuzz        native_tests clang"
  "soak        native_tests"
  "commands    build_x64 run foreign_recordings"
  "wine        build_x64 run windows_tests"
  "window      build_x64 run windows_tests"
  "replay      build_x64 run"
  "logs        build_x64 run books"
  "x86         build_x86 windows_tests roots x86_display"
  "release     build_x64 build_x86 package"
  "fresh       roots clone"
)

all_stages() {
  local row
  for row in "${stage_table[@]}"; do echo "${row%% *}"; done
}

# In a run of all stages these are left to the root that the stage `fresh` makes.
root_stages=(checks unit soak)
stages_of_whole_run() { all_stages | grep -Fxv "${root_stages[@]/#/-e}"; }

# stage_groups STAGE...
stage_groups() {
  local row name groups
  for row in "${stage_table[@]}"; do
    read -r name groups <<<"$row"
    [[ " $* " != *" $name "* ]] || echo "$groups"
  done
}

# The process group that works for this script, which ends with it by `at_exit stop_running`.
running=""
stop_running() {
  [ -z "$running" ] || kill -- -"$running" || true
  [ -z "$running" ] || wait "$running" || true
}

# in_group COMMAND ARGS: in a process group of its own.
in_group() {
  local code=0
  set -m
  "$@" </dev/null &
  set +m
  running=$!
  wait "$running" || code=$?
  running=""
  return "$code"
}

run_stage() {
  local began=$SECONDS before=$failed
  say "stage $1"
  "stage_$1" || [ "$failed" -gt "$before" ] || count_failed "$1 ended early"
  say "stage $1: $((SECONDS - began)) s$([ "$failed" -eq "$before" ] || echo ", with failures")"
}

count_failed() {
  say "failed: $*"
  keep_failures <<<"failed: $*"
  failed=$((failed + 1))
}

# Of the lines that it reads, those that tell a failure.
keep_failures() {
  mkdir -p "$results"
  grep '^failed: ' >>"$failures" || true
}

count_skipped() {
  say "skipped: $*"
  skipped=$((skipped + 1))
}

# count_command NAME COMMAND ARGS: one test that passes when the command does, and is skipped when it
# ends with 77.
count_command() {
  local name=$1 log=$results/$1.log code=0
  shift
  mkdir -p "$results"
  in_group "$@" >"$log" 2>&1 || code=$?
  case $code in
    0) passed=$((passed + 1)) ;;
    77) count_skipped "$name: $(tail -n 1 "$log")" ;;
    *)
      tail -n 60 "$log"
      count_failed "$name (the whole output: $log)"
      ;;
  esac
}

# run_ctest NAME PRESET CTEST-ARGUMENTS: runs tests of a preset and counts each case.
run_ctest() {
  local name=$1 preset=$2 folder=$results/$1 counts p f s
  shift 2
  rm -rf "$folder"
  mkdir -p "$folder"
  # A test binary that runs as one entry leaves its cases' results in this folder.
  # Tests that lost this script would come into the way of the next run's: `timeout` hands the signal on to
  # all of them, and sets no limit.
  GTEST_OUTPUT=$(gtest_output "$preset" "$folder") in_group setpriv --pdeathsig TERM timeout 0 \
    ctest --test-dir "$build/$preset" --timeout 900 --no-tests=error --output-on-failure \
    --output-junit "$folder/entries.junit" "$@" >"$folder.log" 2>&1 || true
  counts=$(run_python scripts/lib/tally.py "$folder/entries.junit" "$folder" 2>>"$folder.log") ||
    counts="0 0 0"
  read -r p f s <<<"$counts"
  if [ $((p + f + s)) -eq 0 ]; then
    tail -n 20 "$folder.log"
    count_failed "$name: no tests ran"
    return
  fi
  passed=$((passed + p)) failed=$((failed + f)) skipped=$((skipped + s))
  say "$name: $p passed, $f failed, $s skipped"
  tail -n +2 <<<"$counts"
  keep_failures <<<"$counts"
  # What the failed ones said, without the lines of those that passed.
  [ "$f" -eq 0 ] || grep -vE '^ +Start +[0-9]+:|Test +#.* Passed ' "$folder.log" | tail -n 150
}

gtest_output() {
  case $1 in
    windows-*) echo "xml:Z:$2/" ;;
    native-sanitize) echo "xml:$2/" ;;
  esac
}

# build_all PRESET [TARGET...]: false, and one failure counted, when it does not build.
build_all() {
  build_tests "$@" || {
    count_failed "the preset $1 does not build (see $build/$1-build.log)"
    return 1
  }
}

# build_before_commands [TARGET...]: the program, what drives it, and the Wine prefix that all others are
# copied from, so that no command's time limit includes building these.
build_before_commands() {
  (build_program x64 tolvane_drive "$@") || { count_failed "the program cannot be built"; return 1; }
  need_wine
}

# Entries of ctest that are not unit tests. Those of the soak are one entry, soak_tests, until they are built.
other_entries='^(floors|docs|scripts|traffic|window|release|fuzz|soak)\.|^window_tests$|^soak_tests'

stage_checks() {
  configure_preset native || { count_failed "the preset native cannot be configured"; return; }
  run_ctest checks native -j2 -R '^(floors|docs|scripts|traffic|window|release)\.'
  count_command format check_format
  count_command shellcheck check_scripts
}

sources_of() { git -C "$root" ls-files -- "$@"; }

check_format() {
  (cd "$root" && sources_of '*.h' '*.cpp' | xargs clang-format --dry-run --Werror)
}

check_scripts() { (cd "$root" && shell_scripts | xargs shellcheck); }

# Those that git tracks: their names or their first lines tell.
shell_scripts() {
  sources_of | LC_ALL=C xargs awk 'FNR == 1 && (FILENAME ~ /[.]sh$/ || /^#!.*[ /](ba)?sh$/) { print FILENAME }'
}

stage_unit() {
  build_all native && run_ctest unit native -j2 -E "$other_entries"
}

stage_sanitizers() {
  build_all native-sanitize && run_ctest sanitizers native-sanitize -j2 -E "$other_entries"
}

stage_fuzz() {
  build_all native-sanitize fuzzers && run_ctest fuzz native-sanitize -j2 -R '^fuzz\.'
}

stage_soak() {
  # The programs for measuring by hand depend on the code they measure, and no other stage compiles them.
  build_all native soak_tests tolvane_soak benchmarks && run_ctest soak native -j2 -R '^soak\.'
}

# Wine and the X server run from the first stage that needs them to the end of the script. Without Wine's services each
# of these stages fails.
services_failed=""
need_wine() {
  if [ -z "${wine_lock:-}" ]; then
    # shellcheck source=wine.sh
    source "$root/scripts/lib/wine.sh"
    can_have wine_session || { count_failed "the Wine prefix cannot be made or the display does not start"; return 1; }
    wine_session
    wine_stay || services_failed=1
  fi
  [ -z "$services_failed" ] || { count_failed "Wine's services do not start"; return 1; }
}

stage_wine() {
  need_wine || return
  build_all windows-x64 all benchmarks && run_ctest wine windows-x64 -j2 -E "$other_entries"
}

stage_window() {
  need_wine || return
  build_all windows-x64 || return
  begin_ahead window
  run_ctest window windows-x64 -R '^window_tests$'
  keep_pictures
}

# The pictures of the windows, for looking at.
keep_pictures() {
  local picture
  for picture in "$build"/windows-*/tests/{window,platform/windows}/pictures/*.bmp; do
    [ -e "$picture" ] || continue
    convert "$picture" "${picture%.bmp}.png" && rm "$picture"
  done
}

# Long window tests, whose subject is the same at any bitness, are left to the 64-bit program.
x86_filter='-SpreadsheetLog.*:Table/SpreadsheetServer.*Chosen:Table/StartOutcomes.*:Option1.BadInput*'
x86_filter+=':LogRun.WhatAHeldFileKeptBackComesWithTheNextFileOfItsChannel'

# What the stage would do first, and then finds done.
prepare_x86() {
  # shellcheck source=x86.sh
  source "$root/scripts/lib/x86.sh"
  [ -z "$(x86_obstacle)" ] && x86_make_root && build_tests windows-x86
}

stage_x86() {
  # shellcheck source=wine.sh
  source "$root/scripts/lib/wine.sh"
  # shellcheck source=x86.sh
  source "$root/scripts/lib/x86.sh"
  local obstacle
  obstacle=$(x86_obstacle)
  if [ -n "$obstacle" ]; then
    count_skipped "x86: $obstacle"
  elif ! x86_make_root; then
    count_skipped "x86: the 32-bit root cannot be made: $(x86_reason)"
  elif ! can_have display_start; then
    count_failed "x86: the display does not start"
  elif build_all windows-x86; then
    display_start
    x86_stay || { count_failed "x86: no program runs in the root"; return; }
    GTEST_FILTER=$x86_filter run_ctest x86 windows-x86 -j2
    x86_leave
    keep_pictures
  fi
}
