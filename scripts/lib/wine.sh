# Wine in a prefix of the project's own, and a display for it.
#
# Whoever uses the prefix holds its lock shared. The last one to leave ends the Wine server, so
# nothing lingers and nobody's server is ended under him.
# shellcheck shell=bash
: "${build:?common.sh comes first}"

# Pixels per inch that the screen claims: 96, 120, 144 and 192 are usual on Windows. An X server of our
# own grows with them.
wine_dpi=${TOLVANE_DPI:-96}
export WINEPREFIX="${TOLVANE_WINE_PREFIX:-$build/wine-prefix${TOLVANE_DPI:+-$wine_dpi}}"
export WINEARCH="${WINEARCH:-win64}" WINEDEBUG=-all
export LANG=ja_JP.UTF-8 LC_ALL=ja_JP.UTF-8
# Set by the wine launcher's caller on machines that want it; here it would name a 32-bit loader.
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
  # A bare X server has no window manager to draw a title bar: Wine draws its own.
  printf '\r\n[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\r\n"Managed"="N"\r\n'
}

wine_prefix_ready() { [ -e "$WINEPREFIX/tolvane-ready" ]; }

wine_make_prefix() {
  local registry
  say "making the Wine prefix $WINEPREFIX (about 10 s)"
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  WINEDLLOVERRIDES="mscoree,mshtml=" wine wineboot --init </dev/null >"$WINEPREFIX.log" 2>&1 ||
    fail "the Wine prefix cannot be made (see $WINEPREFIX.log)"
  registry=$(mktemp --suffix=.reg)
  { printf '\xff\xfe'; wine_registry | iconv -f UTF-8 -t UTF-16LE; } >"$registry"
  wine regedit /S "$registry" >>"$WINEPREFIX.log" 2>&1 || fail "Wine's registry cannot be written"
  rm "$registry"
  # The symbols of title bars and scroll bars; Debian's Wine does not look where Debian keeps them.
  cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/" ||
    fail "the font Marlett is not installed: scripts/demo and scripts/test install it"
  # In the session that made the prefix Wine's COM services answer late or never.
  command wineserver -k {wine_lock}>&- || true
  command wineserver -w {wine_lock}>&-
  touch "$WINEPREFIX/tolvane-ready"
}

# wine_session: prefix and display are there until the script ends; programs are started by `wine`.
wine_session() {
  command -v wine >/dev/null || fail "Wine is not installed: scripts/demo and scripts/test install it"
  mkdir -p "$(dirname "$WINEPREFIX")"
  display_start
  exec {wine_lock}>"$WINEPREFIX.lock"
  at_exit wine_leave
  flock -s "$wine_lock"
  if ! wine_prefix_ready; then
    flock "$wine_lock"
    wine_prefix_ready || wine_make_prefix
    flock -s "$wine_lock"
  fi
}

wine_leave() {
  if flock -n "$wine_lock"; then
    command wineserver -k {wine_lock}>&- || true
    command wineserver -w {wine_lock}>&- || true
  fi
}

# The lock must not be inherited: a Wine server outlives the program that made it start.
wine() {
  if [ -n "${wine_lock:-}" ]; then
    command wine "$@" {wine_lock}>&-
  else
    command wine "$@"
  fi
}

# display_start: the caller's DISPLAY, or an X server of our own until the script ends.
display_start() {
  [ -n "${DISPLAY:-}" ] && return
  command -v Xvfb >/dev/null || fail "Xvfb is not installed: scripts/demo and scripts/test install it"
  local numbers screen=$((1280 * wine_dpi / 96))x$((1024 * wine_dpi / 96))x24
  numbers=$(mktemp)
  Xvfb -displayfd 3 -screen 0 "$screen" -nolisten tcp 3>"$numbers" >/dev/null 2>&1 &
  xvfb_process=$!
  at_exit display_stop
  for _ in {1..200}; do
    [ -s "$numbers" ] && break
    kill -0 "$xvfb_process" 2>/dev/null || break
    sleep 0.05
  done
  [ -s "$numbers" ] || fail "the X server Xvfb does not start"
  DISPLAY=:$(cat "$numbers")
  export DISPLAY
  rm "$numbers"
}

display_stop() {
  kill "$xvfb_process" 2>/dev/null || true
  wait "$xvfb_process" 2>/dev/null || true
}
