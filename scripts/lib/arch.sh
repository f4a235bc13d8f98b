# Windows programs of both kinds: the 64-bit ones run in Wine here, the 32-bit ones in the 32-bit root's.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}" "${packages_run:?packages.sh comes first}"

# shellcheck source=wine.sh
source "$root/scripts/lib/wine.sh"
# shellcheck source=x86.sh
source "$root/scripts/lib/x86.sh"

# arch_packages ARCH: the groups of packages that build and run its programs.
arch_packages() {
  case $1 in
    x64) echo build_x64 run ;;
    x86) echo build_x86 roots x86_display ;;
  esac
}

# By architecture, the prefix of its session.
declare -A arch_prefixes=()

# arch_session ARCH [--alone]: until the script ends, or names another one, its programs are started by arch_run, in the
# prefix $arch_prefix. With --alone that is the one of runs by themselves, once no other one is under way. A session that
# has begun goes on.
arch_session() {
  arch_of_session=$1
  [ -n "${arch_prefixes[$1]:-}" ] || "arch_session_$1" "${2:-}"
  # shellcheck disable=SC2034 # for the scripts
  arch_prefix=${arch_prefixes[$1]}
}

arch_session_x64() {
  if [ "$1" = --alone ]; then wine_session_alone; else wine_session; fi
  arch_prefixes[x64]=$WINEPREFIX
}

arch_session_x86() {
  local obstacle
  obstacle=$(x86_obstacle)
  [ -z "$obstacle" ] || fail "the 32-bit root cannot be used: $obstacle"
  x86_make_root || fail "the 32-bit root cannot be made: $(x86_reason)"
  if [ "$1" = --alone ]; then
    x86_prefix=$stand/wine-prefix-run-x86$dpi_suffix
    lock_script "$x86_prefix.alone.lock" "runs the program by itself too"
  fi
  display_start
  x86_stay || fail "no program runs in the 32-bit root"
  arch_prefixes[x86]=$x86_prefix
}

arch_run() {
  case $arch_of_session in
    x64) wine "$@" ;;
    x86) x86_enter TOLVANE_BENCH="${TOLVANE_BENCH:-}" "$root/scripts/lib/wine-run" "$@" ;;
  esac
}

# arch_begin PROGRAM ARGS: the same in the background, as the process $!, which does not keep the next run waiting when
# this script is killed.
arch_begin() {
  case $arch_of_session in
    x64) begin_unlocked wine "$@" ;;
    x86) (debian_root_let_go && arch_run "$@") & ;;
  esac
}

# arch_strip ARCH FILE... FOLDER: copies of built files without debug information, as in a release. Wine reads what does
# not begin at a page into memory, and so the debug information too, which is most of such a file.
arch_strip() {
  local triple=x86_64 file
  [ "$1" = x64 ] || triple=i686
  for file in "${@:2:$#-2}"; do
    "$triple-w64-mingw32-objcopy" --strip-all "$file" "${!#}/${file##*/}" || fail "$file cannot be copied"
  done
}

# arch_process FOLDER: the process of the program that was started there by its whole path, as this machine counts
# processes; false when there is none.
arch_process() {
  local process
  for process in /proc/[0-9]*; do
    [ "$(cat "$process/comm" 2>/dev/null)" = Tolvane.exe ] &&
      tr '\0\134' '\n/' <"$process/cmdline" 2>/dev/null | grep -qF "$1/Tolvane.exe" &&
      basename "$process" && return
  done
  return 1
}

# windows_path PATH: the same as Windows programs name it.
windows_path() { printf 'Z:%s\n' "${1//\//\\}"; }
