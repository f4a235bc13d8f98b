# Wine in the project's own prefixes, and a display for it. One Wine server runs for each prefix, and the
# program can run only once under one server; so
#   the tests share a prefix,
#   unattended runs share another, one at a time: the next run waits,
#   the demo that a user has open has a third, and a second such demo does not start.
#
# Every script that uses a prefix holds its lock. The last one ends the Wine server, so no server is left
# behind and none is ended while it is used.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}"

# shellcheck source=lock.sh
source "$root/scripts/lib/lock.sh"
# shellcheck source=resolution.sh
source "$root/scripts/lib/resolution.sh"

wine_tests_prefix=${TOLVANE_WINE_PREFIX:-$build/wine-prefix$dpi_suffix}
# Where unattended runs and the open demo have their prefixes and program folders. A test uses another folder, so
# that it does not collide with a developer's own runs.
stand=${TOLVANE_STAND:-$build}
# Wine's program for menus would write the program's entries into the user's own folders.
no_menus="winemenubuilder.exe=d"
export WINEARCH="${WINEARCH:-win64}" WINEDEBUG=-all WINEDLLOVERRIDES=$no_menus
# The caller's environment may set it; here it would name a 32-bit loader.
unset WINELOADER

# Fonts that a Japanese Windows has, replaced by IPA's: fixed pitch for "MS Gothic", so that the
# columns of the page line up.
wine_registry() {
  local fixed="IPAGothic" proportional="IPAPGothic" name
  printf 'Windows Registry Editor Version 5.00\r\n\r\n'
  printf '[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]\r\n'
  for name in "MS Gothic" "ＭＳ ゴシック" "MS Mincho" "ＭＳ 明朝"; do
    printf '"%s"="%s"\r\n' "$name" "$fixed"
  done
  for name in "MS PGothic" "ＭＳ Ｐゴシック" "MS UI Gothic" "MS Sans Serif" "Meiryo UI" "Meiryo" \
    "Segoe UI" "Tahoma"; do
    printf '"%s"="%s"\r\n' "$name" "$proportional"
  done
  printf '\r\n[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes]\r\n'
  for name in "MS Shell Dlg" "MS Shell Dlg 2"; do
    printf '"%s"="%s"\r\n' "$name" "$proportional"
  done
  printf '\r\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\r\n"LogPixels"=dword:%08x\r\n' "$wine_dpi"
  # A program that crashes says where, and ends; Wine's question about it would wait for ever.
  printf '\r\n[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]\r\n"ShowCrashDialog"=dword:00000000\r\n'
  # A bare X server has no window manager to draw a title bar: Wine draws its own. On the display of a user
  # with a window manager this changes.
  printf '\r\n[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\r\n"Managed"="N"\r\n'
}

# A prefix is a copy of one that nobody uses. Most of its 700 MB are Wine's own libraries, which are
# linked, not copied: Wine never writes into them.
wine_make_prefix() {
  local template=$wine_tests_prefix-template
  [ -e "$template/tolvane-template" ] || WINEPREFIX=$template wine_make_template
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX/drive_c"
  if ! cp -al "$template/drive_c/windows" "$WINEPREFIX/drive_c/" ||
    ! tar -C "$template" --exclude=./drive_c/windows -cf - . | tar -C "$WINEPREFIX" -xf -; then
    fail "the Wine prefix $WINEPREFIX cannot be made"
  fi
  # The disk below Z:, which the program asks for. Wine would complain of the real one, which no ordinary user may read.
  ln -sfn /dev/null "$WINEPREFIX/dosdevices/z::"
  touch "$WINEPREFIX/tolvane-ready"
}

wine_make_template() {
  local log=$WINEPREFIX.log registry
  say "making a Wine prefix (about 10 s)"
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  WINEDLLOVERRIDES="$no_menus;mscoree,mshtml=" wine wineboot --init </dev/null >"$log" 2>&1 ||
    fail "the Wine prefix cannot be made (see $log)"
  registry=$(mktemp --suffix=.reg)
  at_exit "rm -f ${registry@Q}"
  { printf '\xff\xfe'; wine_registry | iconv -f UTF-8 -t UTF-16LE; } >"$registry"
  wine regedit /S "$registry" >>"$log" 2>&1 || fail "Wine's registry cannot be written (see $log)"
  rm "$registry"
  # The symbols of title bars and scroll bars; Debian's Wine does not look where Debian keeps them.
  cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/" ||
    fail "the font Marlett is not installed: scripts/demo and scripts/test install it"
  # In the session that made the prefix Wine's COM services answer late or never.
  wine_end
  touch "$WINEPREFIX/tolvane-template"
}

# wine_enter PREFIX: what every session begins with. Its lock is the descriptor $wine_lock.
wine_enter() {
  need_resolution
  command -v wine >/dev/null || fail "Wine is not installed: scripts/demo and scripts/test install it"
  # Not before the packages are there, which bring the locale.
  export WINEPREFIX=$1 LANG=ja_JP.UTF-8 LC_ALL=ja_JP.UTF-8
  [ ! -e "$WINEPREFIX" ] || [ -O "$WINEPREFIX" ] ||
    fail "the Wine prefix $WINEPREFIX belongs to another user: remove it and start again"
  lock_open "$WINEPREFIX.lock"
  wine_lock=$lock_descriptor
}

# wine_session: the tests' prefix and a display are there until the script ends; programs are started by
# `wine`.
wine_session() {
  wine_enter "$wine_tests_prefix"
  display_start
  at_exit wine_leave
  wine_take_lock --shared
  if ! wine_prefix_ready; then
    wine_take_lock
    lock_sign "$WINEPREFIX.lock"
    wine_prefix_ready || wine_prepare
    wine_take_lock --shared
  fi
}

# wine_stay: Wine's own services and its desktop are there from now until the script ends. Otherwise a program starts
# them and leaves them its standard output or its error output, so that whoever reads that waits for their end too.
# False when they do not begin.
wine_stay() {
  local answers
  answers=$(mktemp)
  at_exit "rm -f ${answers@Q}"
  # It ends with its input, and so with the script.
  exec {wine_service}> >(wine cmd.exe >"$answers" 2>/dev/null)
  # In a shell of its own: one that has ended already reads nothing, and its signal must not end this script.
  (echo "$wine_first_command" >&"$wine_service") || true
  wine_await "$answers" "$!"
}

# The program that keeps the services running answers once they have begun. The desktop begins with the first window.
wine_first_command="start /wait rundll32 user32.dll,GetDesktopWindow && echo begun"

# What a Wine that begins, or a program there, takes at most on a busy machine, in seconds; usually it is a few.
wine_patience=180

# wine_await ANSWERS PROCESS: waits for that answer; false when the process ends without it, or it does not come.
wine_await() {
  local end=$((SECONDS + wine_patience))
  until grep -q begun "$1" 2>/dev/null; do
    [ -e "/proc/$2" ] && [ "$SECONDS" -lt "$end" ] || return 1
    sleep 0.1
  done
}

# wine_take_lock [--shared]: a session that ends has the prefix alone for a moment, one that makes it for ten
# seconds.
wine_take_lock() { lock_take 2 "$wine_lock" "$WINEPREFIX.lock" "has the Wine prefix to itself" "$@"; }

# wine_session_alone: a session for a run by itself, once no other one is under way.
wine_session_alone() {
  wine_enter "$stand/wine-prefix-run$dpi_suffix"
  lock_wait "$wine_lock" "$WINEPREFIX.lock" "runs the program by itself too"
  display_start
  wine_take_over
}

# wine_session_shown: the session of a demo on the user's own display.
wine_session_shown() {
  local display managed=N
  display=$(timeout 10 "$root/scripts/lib/python-run" "$root/scripts/lib/display_check.py" 2>/dev/null) ||
    fail "the display $DISPLAY does not answer: put DISPLAY right, or add --seconds 20 for a run by itself"
  [ "$display" = bare ] || managed=Y
  wine_enter "$stand/wine-prefix-shown$dpi_suffix"
  flock -n "$wine_lock" ||
    fail "the demo is open already ($(lock_holder "$WINEPREFIX.lock")): close its window first," \
      "or add --seconds 20 for a run by itself"
  lock_sign "$WINEPREFIX.lock"
  wine_take_over
  # No server runs, so the registry's file may be changed.
  sed -i "s/^\"Managed\"=\".\"/\"Managed\"=\"$managed\"/" "$WINEPREFIX/user.reg"
}

# wine_take_over: ends what runs in the prefix. The lock is held exclusively, so the script of those processes is
# gone.
wine_take_over() {
  wine_end
  at_exit wine_leave
  wine_prefix_ready || wine_prepare
}

wine_prefix_ready() { [ -e "$WINEPREFIX/tolvane-ready" ]; }

# Only one script at a time makes the prefix, since all copy the same one.
wine_prepare() {
  local making
  lock_open "$wine_tests_prefix-template.lock"
  making=$lock_descriptor
  lock_wait "$making" "$wine_tests_prefix-template.lock" "makes a Wine prefix too"
  wine_make_prefix {making}>&-
  exec {making}>&-
}

wine_leave() {
  flock -n "$wine_lock" || return 0
  lock_sign "$WINEPREFIX.lock"
  wine_end
}

wine_end() {
  unlocked wineserver -k 2>/dev/null || true
  unlocked wineserver -w 2>/dev/null || true
}

# drop_lock: for a child process that may outlive this script.
drop_lock() { [ -z "${wine_lock:-}" ] || exec {wine_lock}>&-; }

# unlocked COMMAND ARGS: runs without the lock, and ends when this script ends.
unlocked() { (drop_lock && exec setpriv --pdeathsig TERM "$@"); }

wine() { unlocked wine "$@"; }

# begin_unlocked COMMAND ARGS: the same in the background, as the process $!. A signal to this script alone acts while
# it waits for such a process, and not while a command runs in the foreground.
begin_unlocked() { (drop_lock && exec setpriv --pdeathsig TERM "$@") & }

pause() {
  begin_unlocked sleep "$1"
  wait "$!"
}

# display_start: an X server of our own until the script ends, or that of the script which called this one.
display_start() {
  if [ -n "${TOLVANE_DISPLAY:-}" ]; then
    export DISPLAY=$TOLVANE_DISPLAY
    return
  fi
  need_resolution
  command -v Xvfb >/dev/null || fail "Xvfb is not installed: scripts/demo and scripts/test install it"
  local numbers xvfb_process screen=$((1280 * wine_dpi / 96))x$((1024 * wine_dpi / 96))x24
  numbers=$(mktemp)
  at_exit "rm -f ${numbers@Q}"
  # It must not hear Ctrl-C, which would end it under the program; and it ends with this script even when
  # nothing of the script is left to end it.
  (drop_lock && exec setsid setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 "$screen" -nolisten tcp) \
    3>"$numbers" >/dev/null 2>&1 &
  xvfb_process=$!
  at_exit end_child "$xvfb_process"
  for _ in {1..200}; do
    [ -s "$numbers" ] && break
    kill -0 "$xvfb_process" 2>/dev/null || break
    sleep 0.05
  done
  [ -s "$numbers" ] || fail "the X server Xvfb does not start"
  DISPLAY=:$(cat "$numbers")
  export DISPLAY TOLVANE_DISPLAY=$DISPLAY
  rm "$numbers"
}
