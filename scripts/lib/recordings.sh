# Recordings of our own, made by the generators of tests/traffic.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}"

# own_recording NAME: the path of the recording car, boat or both, as its generator makes it now. Needs
# python3. An existing file is kept when it is equal, and otherwise replaced in one step, since another run may
# be playing it.
own_recording() (
  file=$build/recordings/$1.log
  mkdir -p "$build/recordings" || fail "the folder $build/recordings cannot be made"
  new=$(mktemp "$file.XXXXXX") || fail "no file can be made in $build/recordings"
  trap 'rm -f "$new"' EXIT
  run_python tests/traffic/generate.py "$1" >"$new" || fail "the recording $1 cannot be made"
  chmod 644 "$new"
  cmp -s "$new" "$file" || mv "$new" "$file"
  printf '%s\n' "$file"
)
