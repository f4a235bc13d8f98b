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

# configure_preset PRESET [CMAKE-ARGUMENT...]
configure_preset() {
  (cd "$root" && quietly "$build/$1-configure.log" cmake --preset "$@")
}

# build_configured PRESET [TARGET...]: everything when no target is named.
build_configured() {
  local preset=$1 targets=()
  shift
  [ $# -eq 0 ] || targets=(--target "$@")
  (cd "$root" && quietly "$build/$preset-build.log" cmake --build --preset "$preset" "${targets[@]}")
}

# build_preset PRESET [TARGET...]: the Windows presets need no test package, unless tests were built
# there before.
build_preset() { configure_preset "$1" && build_configured "$@"; }

# build_tests PRESET [TARGET...]: the same with tests and benchmarks, which need the packages `test`.
build_tests() { configure_preset "$1" -DTOLVANE_TESTS=ON && build_configured "$@"; }

# build_program ARCH: the program's folder and the simulated libraries.
build_program() {
  say "building the program for Windows ($1), a minute or two the first time"
  build_preset "windows-$1" program || fail "the program for Windows ($1) cannot be built"
}
