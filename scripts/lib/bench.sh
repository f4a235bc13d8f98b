# The simulated bench: its libraries in the prefix's system folder, and the file that describes it.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${WINEPREFIX:?wine.sh comes first}"

# The libraries stand where the program looks for a vendor's.
bench_install() {
  local arch=$1
  cp "$build/windows-$arch/simulator/"*.dll "$WINEPREFIX/drive_c/windows/system32/"
}

# bench_write FILE ADAPTER CLOCK_START LOG [TIMES [SPEED]]: one adapter of a kind (canusb, interface,
# kvaser), its clock standing at CLOCK_START, on the recording LOG, or on the synthetic vehicle when LOG
# is empty. The recording is played TIMES times over (1), bus time running SPEED times as fast (1).
bench_write() {
  local file=$1 adapter=$2 clock_start=$3 log=$4 times=${5:-1} speed=${6:-1} section
  case $adapter in
    canusb) section="canusb 1" ;;
    interface) section="interface 1" ;;
    kvaser) section="kvaser 0" ;;
    *) fail "no such adapter: $adapter (canusb, interface, kvaser)" ;;
  esac
  {
    printf '[%s]\nclock_start = %s\n\n[bus]\n' "$section" "$clock_start"
    if [ -n "$log" ]; then
      printf 'source = log\nlog = Z:%s\nrepeat = %s\n' "$log" "$times"
    else
      printf 'source = vehicle\n'
    fi
    printf '\n[bench]\nreport = Z:%s\nspeed = %s\n' "${file%.ini}-report.txt" "$speed"
  } >"$file"
}
