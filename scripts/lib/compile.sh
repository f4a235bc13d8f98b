# Configuring and building a preset, quietly: the output stands in a file and is shown on failure.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}"

# quietly LOG COMMAND ARGS
quietly() {
  local log=$1
  shift
  mkdir -p "$(dirname "$log")"
  if ! "$@" >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    return 1
  fi
}

configure_preset() {
  (cd "$root" && quietly "$build/$1-configure.log" cmake --preset "$1")
}

# build_preset PRESET [TARGET...]: everything when no target is named.
build_preset() {
  local preset=$1 targets=()
  shift
  [ $# -eq 0 ] || targets=(--target "$@")
  configure_preset "$preset" &&
    (cd "$root" && quietly "$build/$preset-build.log" cmake --build --preset "$preset" "${targets[@]}")
}

# build_program ARCH: the program's folder and the simulated libraries.
build_program() {
  say "building the program for Windows ($1), a minute or two the first time"
  build_preset "windows-$1" program || fail "the program for Windows ($1) cannot be built"
}
