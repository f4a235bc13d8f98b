# The real program in a folder of its own, driven by tolvane_drive.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${WINEPREFIX:?wine.sh comes first}"

# program_install FOLDER: the built program there, beside settings and logs that stand there already.
program_install() {
  mkdir -p "$1"
  cp "$build/windows-x64/program/"{Tolvane.exe,qxt100.dll} "$1/"
}

# program_start FOLDER: starts it without waiting; it is awaited as $program, and ends with the script.
program_start() {
  # The process id must be the program's own, so the function wine, which keeps the lock back, does
  # not serve here.
  # shellcheck disable=SC2154 # the lock is from wine_session
  (cd "$1" && exec {wine_lock}>&- && exec wine Tolvane.exe) &
  program=$!
  at_exit "kill $program 2>/dev/null"
}

drive() { wine "$build/windows-x64/tools/tolvane_drive.exe" "$@"; }

drive_connect() {
  drive wait-window -- wait-enabled Bt_Connect -- click Bt_Connect -- wait-text TB_Status 通信中 ||
    fail "the program did not start a run"
}

# drive_end: ends the run and the program.
drive_end() {
  drive click Bt_Disconnect -- wait-enabled Bt_Connect -- close || fail "the run does not end"
  wait "$program" || fail "the program ended with an error"
}
