# The stage `release` of scripts/test.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}" "${stuck:?stages.sh comes first}"

# Packages the commit twice, in two places. The second time it is the 32-bit program alone, which most
# users take: the two are made by the same steps, and the third build would cost another minute.
stage_release() {
  count_command release timeout "$stuck" python3 -B "$root/tests/release/check_release.py" "$root" \
    "$build/release-check" x86
}
