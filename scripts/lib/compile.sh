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

# One CMake at a time works in a preset's folder; a second script waits for it.

# configure_preset PRESET [CMAKE-ARGUMENT...]
configure_preset() {
  (cd "$root" && quietly "$build/$1-configure.log" flock "$build/$1.lock" cmake --preset "$@")
}

# build_configured PRESET [TARGET...]: everything when no target is named.
build_configured() {
  local preset=$1 targets=()
  shift
  [ $# -eq 0 ] || targets=(--target "$@")
  (cd "$root" && quietly "$build/$preset-build.log" \
    flock "$build/$preset.lock" cmake --build --preset "$preset" "${targets[@]}")
}

# build_preset PRESET [TARGET...]: the Windows presets need no test package, unless tests were built
# there before.
build_preset() { configure_preset "$1" && build_configured "$@"; }

# build_tests PRESET [TARGET...]: the same with tests and benchmarks, which need their packages too.
build_tests() { configure_preset "$1" -DTOLVANE_TESTS=ON && build_configured "$@"; }

# build_program ARCH [TARGET...]: the program's folder, the simulated libraries, and other targets.
build_program() {
  local preset=windows-$1
  if [ ! -e "$build/$preset/program/Tolvane.exe" ]; then
    say "building the program for Windows ($1), a minute or two"
  elif ! is_built "$preset" program "${@:2}"; then
    say "building what has changed of the program for Windows ($1)"
  fi
  build_preset "$preset" program "${@:2}" || fail "the program for Windows ($1) cannot be built"
}

# is_built PRESET TARGET...: nothing would be done to build these.
is_built() {
  (cd "$root" && cmake --build --preset "$1" --target "${@:2}" -- -n 2>/dev/null) |
    grep -q 'no work to do'
}
