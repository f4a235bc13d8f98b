# Unattended runs of the program: on an X server of our own, one run at a time.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}"

# shellcheck source=options.sh
source "$root/scripts/lib/options.sh"
# shellcheck source=packages.sh
source "$root/scripts/lib/packages.sh"
# shellcheck source=compile.sh
source "$root/scripts/lib/compile.sh"
# shellcheck source=wine.sh
source "$root/scripts/lib/wine.sh"
# shellcheck source=bench.sh
source "$root/scripts/lib/bench.sh"
# shellcheck source=program.sh
source "$root/scripts/lib/program.sh"
# shellcheck source=settings.sh
source "$root/scripts/lib/settings.sh"
# shellcheck source=recordings.sh
source "$root/scripts/lib/recordings.sh"

# need_reader_of FILE [ADVICE]: a wrong file is reported after the installation of Python at most, before that of the
# compilers. ADVICE ends the sentence of what is no file.
need_reader_of() {
  [ -e "$1" ] || fail "there is no recording $1"
  # Each is read twice, by a check and by the adapters.
  [[ -f $1 || -d $1 ]] || fail "$1 is a pipe or a device, and a recording is a file${2:-}"
  need_plain_path "$1"
  command -v python3 >/dev/null || need_packages recordings
}

# need_plain_path FILE: a recording is played from its whole path.
need_plain_path() {
  local path fault
  path=$(realpath -- "$1" && echo /)
  path=${path%??}
  fault=$(path_fault "$path")
  [ -z "$fault" ] || fail "the name of the recording $(printf %q "$path") $fault: give it another one"
}

# need_recording FILE IDS [--comparable page|logs]: prints what the recording contains, or ends the script with a
# message when it has no frames for a program with identifiers of so many bits, or cannot be compared with. IDS is
# the value of the option.
need_recording() {
  local summary
  need_reader_of "$1"
  summary=$(run_python scripts/lib/check_recording.py --ids "$2" "${@:3}" -- "$1") || exit 1
  say "$summary"
}

# ready_recording FILE [IDS]: the same for a recording of any form, which is made ready to be played. Sets
# ready[play] to the file for the bench, and ready[ids], ready[adapter] and, if the recording tells it, ready[rate] to
# what it asks of the run.
declare -A ready=()
facts_of_recording() { run_python scripts/lib/ready_recording.py --ids "${2:-both}" -- "$1" "$converted"; }
ready_recording() {
  local converted facts word value
  need_reader_of "$1" "; --log - plays the lines of a pipe"
  mkdir -p "$build/recordings"
  converted=$(mktemp "$build/recordings/ready.XXXXXX" 2>/dev/null) || fail "no file can be made in $build/recordings"
  at_exit "rm -f ${converted@Q}"
  facts=$(facts_of_recording "$@") || {
    [ $? -eq 3 ] || exit 1
    need_packages foreign_recordings
    facts=$(facts_of_recording "$@") || exit 1
  }
  while read -r word value; do
    # shellcheck disable=SC2034 # for the scripts
    if [ "$word" = say ]; then say "$value"; else ready[$word]=$value; fi
  done <<<"$facts"
}

# run_prepare NAME: starts the session and makes $folder with the program.
run_prepare() {
  wine_session_alone
  program_folder "$stand/runs/$1$dpi_suffix"
  bench_install x64
  export TOLVANE_BENCH="Z:$folder/bench.ini"
}

# build_for_runs [TARGET...]: builds the program, tolvane_drive and the given targets.
# shellcheck disable=SC2120 # one script names a target
build_for_runs() { build_program x64 tolvane_drive "$@"; }

# choose_recording page|logs: sets $recording to the script's argument or, without one, to one of our own with
# identifiers of so many bits. The page or the logs of its run will be compared with it.
choose_recording() {
  if [ -n "${opt[recording]}" ]; then
    need_recording "${opt[recording]}" "${opt[ids]}" --comparable "$1"
    recording=$(realpath "${opt[recording]}")
    return
  fi
  command -v python3 >/dev/null || need_packages recordings
  case ${opt[ids]} in
    11) recording=$(own_recording car) ;;
    29) recording=$(own_recording boat) ;;
    both) recording=$(own_recording both) ;;
  esac
  say "playing $recording"
}
