# Recordings of our own, made by the generators of tests/traffic.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}"

# own_recording NAME: the path of the recording car, boat or both, as its generator makes it now. Needs
# python3. An equal one stays untouched, and a new one takes its place at one stroke: another run may
# be playing it.
own_recording() {
  local file=$build/recordings/$1.log new
  mkdir -p "$build/recordings"
  new=$(mktemp "$file.XXXXXX") || fail "no recording can be made in $build/recordings"
  if ! python3 -B "$root/tests/traffic/generate.py" "$1" >"$new"; then
    rm -f "$new"
    fail "the recording $1 cannot be made"
  fi
  if cmp -s "$new" "$file"; then
    rm "$new"
  else
    chmod 644 "$new"
    mv "$new" "$file"
  fi
  printf '%s\n' "$file"
}
