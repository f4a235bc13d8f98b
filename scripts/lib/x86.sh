# The root in which the 32-bit program runs: Debian for i386 with a 32-bit Wine, below build/.
#
# A root of its own leaves the machine's package set-up alone; adding i386 there can put its package
# lists out of step with what is installed.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}" "${packages_x86_root:?packages.sh comes first}"
# shellcheck source=debian_root.sh
source "$root/scripts/lib/debian_root.sh"
# shellcheck source=wine.sh
source "$root/scripts/lib/wine.sh"

x86_root=$build/x86-root
# Where its Wine keeps a Windows; a script may name another one ahead of the first program.
x86_prefix=$build/wine-prefix-x86$dpi_suffix

# x86_obstacle: prints why the root cannot be made or entered here, nothing when it can.
x86_obstacle() {
  local obstacle
  obstacle=$(debian_root_obstacle)
  if [ -n "$obstacle" ]; then
    echo "$obstacle"
  elif ! can_have runs_32_bit_programs; then
    echo "this machine runs no 32-bit x86 programs"
  fi
}

# The smallest program for i386 Linux, which ends with 0: ELF header, one segment, three instructions
# (mov eax, 1; xor ebx, ebx; int 0x80).
runs_32_bit_programs() {
  local program
  program=$(mktemp "$build/x86-probe.XXXXXX")
  at_exit "rm -f ${program@Q}"
  {
    printf '\177ELF\1\1\1\0\0\0\0\0\0\0\0\0\2\0\3\0\1\0\0\0\x54\x80\4\10\x34\0\0\0\0\0\0\0\0\0\0\0'
    printf '\x34\0\x20\0\1\0\0\0\0\0\0\0'
    printf '\1\0\0\0\0\0\0\0\0\x80\4\10\0\x80\4\10\x5d\0\0\0\x5d\0\0\0\5\0\0\0\0\x10\0\0'
    printf '\xb8\1\0\0\0\x31\xdb\xcd\x80'
  } >"$program"
  chmod +x "$program"
  "$program" 2>/dev/null
}

# x86_make_root: false when it cannot be made; x86_reason tells why.
x86_make_root() {
  local making code=0
  x86_root_ready && return
  lock_open "$x86_root.lock"
  making=$lock_descriptor
  lock_wait "$making" "$x86_root.lock" "makes the 32-bit root too"
  x86_root_ready || x86_root_anew || code=$?
  exec {making}>&-
  return "$code"
}

# A root made for another list of packages is replaced.
x86_root_ready() { [ "$(cat "$x86_root/tolvane-ready" 2>/dev/null)" = "$packages_x86_root" ]; }

x86_root_anew() {
  x86_log=$build/x86-root.log
  say "making the 32-bit root $x86_root (a minute or two, 850 MB)"
  debian_root_make "$x86_root" i386 || { x86_log=$debian_root_log; return 1; }
  # shellcheck disable=SC2086 # a list of words
  debian_root_install "$x86_root" $packages_x86_root >"$x86_log" 2>&1 &&
    debian_root_enter "$x86_root" PATH="$debian_root_path" \
      localedef -i ja_JP -f UTF-8 ja_JP.UTF-8 >>"$x86_log" 2>&1 &&
    as_root tee "$x86_root/tolvane-ready" <<<"$packages_x86_root" >/dev/null
}

x86_reason() { first_complaint "$x86_log"; }

# x86_enter [NAME=VALUE...] COMMAND ARGS: runs a command in the root, as the user who calls.
x86_enter() {
  x86_describe
  if [ -n "${TOLVANE_X86_ROOT:-}" ]; then
    debian_root_join "$TOLVANE_X86_ROOT" "$x86_user" "$x86_root" "${x86_environment[@]}" "$@"
  else
    debian_root_enter "${x86_entry[@]}" "$x86_root" "${x86_environment[@]}" "$@"
  fi
}

# x86_stay: enters the root and starts Wine's services there. Until x86_leave, or the script's end, x86_enter joins
# them: to start a Wine of its own costs each program seconds. False when they do not begin.
x86_stay() {
  # Another script may have a root at the same time.
  local number=$x86_root-$$.process answers=$x86_root-$$.answers
  at_exit "rm -f ${number@Q} ${answers@Q}"
  x86_describe
  # A script text for the inner shell, which holds the input of Wine's interpreter and ends with it.
  # shellcheck disable=SC2016
  debian_root_start --number "$number" "${x86_entry[@]}" "$x86_root" "${x86_environment[@]}" \
    bash -c 'exec {input}> >(exec "$0" cmd.exe); echo "$1" >&"$input"; wait "$!"' \
    "$root/scripts/lib/wine-run" "$wine_first_command" >"$answers" 2>&1
  if ! wine_await "$answers" "$debian_root_process" || ! TOLVANE_X86_ROOT=$(cat "$number"); then
    x86_leave
    return 1
  fi
  export TOLVANE_X86_ROOT
}

x86_leave() {
  debian_root_leave
  unset TOLVANE_X86_ROOT
}

# x86_describe: the project's folder and the X server's sockets stand in the root under their own names.
x86_describe() {
  local home=/tmp
  x86_user=$(id -u):$(id -g)
  [ "$(id -u)" -ne 0 ] || home=/root
  x86_entry=(--user "$x86_user" --bind "$root")
  [ ! -d /tmp/.X11-unix ] || x86_entry+=(--bind /tmp/.X11-unix)
  x86_environment=(PATH="$debian_root_path" HOME="$home" DISPLAY="${DISPLAY:-}"
    TOLVANE_DISPLAY="${TOLVANE_DISPLAY:-}" WINEARCH=win32 TOLVANE_WINE_PREFIX="$x86_prefix" TOLVANE_DPI="${TOLVANE_DPI:-}")
}
