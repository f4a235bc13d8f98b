# Configuring and building a preset, quietly: the output goes to a file and is shown on failure.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}"
# shellcheck source=lock.sh
source "$root/scripts/lib/lock.sh"

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

# cmake_alone PRESET LOG CMAKE-ARGUMENTS: only one CMake works in a preset's folder at a time; a second script
# waits for it.
cmake_alone() (
  lock_alone "$build/$1.lock" "builds in $build/$1 too"
  cd "$root" && quietly "$2" cmake "${@:3}"
)

# The files of a target are compiled together, up to a dozen at once: most of a compiler's time goes into headers
# and templates that they share, so everything is built in half of the time.
compile_together=(-DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=12)

# configure_preset PRESET [CMAKE-ARGUMENT...]
configure_preset() {
  cmake_alone "$1" "$build/$1-configure.log" --preset "$1" "${compile_together[@]}" "${@:2}"
}

# build_configured PRESET [TARGET...]: everything when no target is named.
build_configured() {
  local preset=$1 targets=()
  shift
  [ $# -eq 0 ] || targets=(--target "$@")
  cmake_alone "$preset" "$build/$preset-build.log" --build --preset "$preset" "${targets[@]}"
}

# build_preset PRESET [TARGET...]: the Windows presets need no test package, unless tests were built
# there before.
build_preset() { configure_preset "$1" && build_configured "$@"; }

# build_tests PRESET [TARGET...]: the same with tests, and with benchmarks where they are named; both need
# their packages too.
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

# is_built PRESET TARGET...: true when these are built and up to date. New files count once CMake has run.
is_built() {
  (cd "$root" && cmake --build --preset "$1" --target "${@:2}" -- -n 2>/dev/null) |
    grep -q 'no work to do'
}
