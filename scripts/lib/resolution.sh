# The resolution of the screen in pixels per inch: 96, 120, 144 and 192 are usual on Windows. The size of our
# own X server grows with it, and Wine has a prefix for each.
# shellcheck shell=bash
: "${command_name:?common.sh comes first}"

wine_dpi=${TOLVANE_DPI:-96}
# What the names of prefixes and folders of runs end with.
# shellcheck disable=SC2034 # for the scripts
dpi_suffix=${TOLVANE_DPI:+-$wine_dpi}

# need_resolution: checks the caller's choice.
need_resolution() {
  case $wine_dpi in 96 | 120 | 144 | 192) ;; *) fail "TOLVANE_DPI is 96, 120, 144 or 192, not '$wine_dpi'" ;; esac
}
