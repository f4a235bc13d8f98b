# The stage that starts several of the scripts at once, and the demo on a live bus.
# shellcheck shell=bash
: "${root:?common.sh comes first}"

stage_commands() {
  build_before_commands || return
  count_command commands timeout 900 "$root/tests/scripts/commands_check"
  count_command live timeout 900 "$root/tests/live/live_check"
}
