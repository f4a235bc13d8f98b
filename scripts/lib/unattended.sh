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

# need_recording FILE IDS [--comparable page|logs]: prints what the recording contains, or ends the script with a
# message when it has no frames for a program with identifiers of so many bits, or cannot be compared with. IDS is
# the value of the option, or `unknown`.
need_recording() {
  local summary line
  [ -e "$1" ] || fail "there is no recording $1"
  # A wrong file is reported after the installation of Python at most, before that of the compilers.
  command -v python3 >/dev/null || need_packages recordings
  summary=$(run_python scripts/lib/check_recording.py --ids "$2" "${@:3}" -- "$1") || exit 1
  while IFS= read -r line; do say "$line"; done <<<"$summary"
}

# run_prepare NAME: starts the session and makes $folder with the program.
run_prepare() {
  wine_session_alone
  program_folder "$stand/runs/$1${TOLVANE_DPI:+-$wine_dpi}"
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
