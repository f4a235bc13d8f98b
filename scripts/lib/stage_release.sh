# The stage `release` of scripts/test.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}"

# Packages the commit twice, in two places.
stage_release() {
  # Four builds from nothing: a few minutes on two free cores, and half an hour behind other stages.
  count_command release timeout 3600 "$root/scripts/lib/python-run" "$root/tests/release/check_release.py" \
    "$root" "$build/release-check"
}
