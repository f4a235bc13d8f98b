# The real program in its own folder, driven by tolvane_drive.
# shellcheck shell=bash
: "${build:?common.sh comes first}"

# program_install FOLDER: copies the built program there; settings and logs in the folder are kept.
program_install() {
  mkdir -p "$1"
  cp "$build/windows-x64/program/"{Tolvane.exe,qxt100.dll} "$1/"
}

# program_folder FOLDER: makes a fresh folder with the program, $folder, for an unattended run. When the run fails
# the folder is kept until the next run.
program_folder() {
  folder=$1
  rm -rf "$folder"
  program_install "$folder"
  at_exit program_folder_end
}

# An interrupted run leaves nothing.
# shellcheck disable=SC2154 # run_at_exit sets exit_status
program_folder_end() {
  case $exit_status in
    0 | 129 | 130 | 143) rm -rf "$folder" ;;
    *) say "the program's folder stays for a look: $folder" ;;
  esac
}

# program_start FOLDER: starts it without waiting; $program is its process. It ignores Ctrl-C, and ends with the
# script, even when the script is killed.
program_start() {
  (cd "$1" && drop_lock && exec setsid setpriv --pdeathsig KILL wine Tolvane.exe) &
  program=$!
  at_exit end_child "$program"
}

tolvane_drive=$build/windows-x64/tools/tolvane_drive.exe
# It says why it fails; Wine and signals end it without a word.
drive() {
  local status=0
  wine "$tolvane_drive" "$@" || status=$?
  [ "$status" -eq 0 ] || printf 'tolvane_drive ended with %s\n' "$status" >&2
  return "$status"
}
drive_begin() { begin_unlocked wine "$tolvane_drive" "$@"; }

drive_connect() {
  drive wait-window -- wait-enabled Bt_Connect -- click Bt_Connect -- wait-text TB_Status 通信中 ||
    fail "the program did not start a run"
}

# drive_begin_still SECONDS: the process $! ends when the page has not changed for so long.
drive_begin_still() { drive_begin wait-same RTB_MainView "$1"; }

# drive_watched PROCESS: waits for the end of such a process.
drive_watched() { wait "$1" || fail "the page cannot be watched, tolvane_drive ended with $?"; }

drive_until_still() {
  drive_begin_still "$1"
  drive_watched "$!"
}

# drive_end: ends the run and the program.
drive_end() {
  drive click Bt_Disconnect -- wait-enabled Bt_Connect -- close || fail "the run does not end"
  wait "$program" || fail "the program ended with an error"
}

# drive_leave FOLDER NAME: writes the page's text and the window's picture there, NAME.txt and NAME.png.
drive_leave() {
  drive picture "Z:$1/$2.bmp" -- text RTB_MainView "Z:$1/$2.txt" || fail "the page cannot be saved"
  picture_convert "$1/$2.bmp" "$1/$2.png"
  rm "$1/$2.bmp"
}

# drive_page FOLDER: the same as page.txt and page.png, and checks that both show the page of a run.
drive_page() {
  drive_leave "$1" page
  head -n 1 "$1/page.txt" | grep -q 'ID *DLC *D1 D2 D3 D4 D5 D6 D7 D8' ||
    fail "the window shows no page (see $1/page.png and page.txt)"
  [ "$(wc -l <"$1/page.txt")" -gt 1 ] ||
    fail "the page has no line, the program received nothing (see $1/page.png)"
}

# picture_convert BITMAP PICTURE: a black screen has one colour, or very few.
picture_convert() {
  local colours
  # Without dates, so that an equal picture is an equal file.
  convert "$1" -define png:exclude-chunk=date,tIME "$2" || fail "the picture $1 cannot be converted"
  colours=$(identify -format %k "$2")
  [ "$colours" -ge "$fewest_colours" ] ||
    fail "the picture $2 shows no window, it has $(counted "$colours" colour)"
}
fewest_colours=8
