# The only list of Debian packages that the project needs, in groups, and their installation.
# shellcheck shell=bash
# shellcheck disable=SC2034 # the lists are read through ${!list}
: "${build:?common.sh comes first}"
# shellcheck source=lock.sh
source "${root:?}/scripts/lib/lock.sh"

# What builds the program for each Windows, and what runs it and looks at it.
packages_build_x64="cmake ninja-build g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64"
packages_build_x86="cmake ninja-build g++-mingw-w64-i686-posix binutils-mingw-w64-i686"
packages_run="wine wine64 fonts-wine xvfb fonts-ipafont-gothic imagemagick locales python3"
# The tests natively, and those that run as Windows programs: libgtest-dev brings GoogleTest's source,
# which is compiled for Windows here.
packages_native_tests="cmake ninja-build g++ libgtest-dev libgmock-dev libbenchmark-dev python3"
packages_windows_tests="libgtest-dev python3"
packages_checks="git clang-format shellcheck imagemagick"
# What the sanitized tests and the fuzz targets are compiled with; libclang-rt holds the sanitizers and libFuzzer.
packages_clang="clang libclang-rt-14-dev"
# What reads a recording, before anything is built for its run.
packages_recordings="python3"
# Readers of recordings in the forms of other tools.
packages_foreign_recordings="python3 python3-can"
# Readers of workbooks, .xlsx and .xls.
packages_books="python3-openpyxl python3-xlrd"
# pandoc makes the manual's page.
packages_package="git pandoc python3"
# What makes Debian roots, and what then comes into them: for the 32-bit program, and for an ordinary user.
packages_roots="debootstrap"
packages_clone="git python3"
packages_x86_display="xvfb imagemagick"
packages_x86_root="wine wine32 fonts-wine fonts-ipafont-gothic locales"
packages_fresh_root="sudo"
# Tools that logs are converted for: what tests read the converted logs with, and bench/compare measures beside
# Tolvane.
packages_can_tools="can-utils python3-can"

package_installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

install_packages() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@"
}

# missing_packages GROUP...: those of the groups above that are not installed, each once.
missing_packages() {
  local group list package missing=""
  for group in "$@"; do
    list=packages_$group
    for package in ${!list}; do
      [[ " $missing " == *" $package "* ]] || package_installed "$package" || missing+=" $package"
    done
  done
  printf '%s\n' "${missing# }"
}

# need_packages GROUP...: installs what is missing, after saying so.
need_packages() {
  [ -z "$(missing_packages "$@")" ] || install_missing "$@" || exit 1
  case " $* " in *" run "*) need_japanese_locale ;; esac
}

# install_missing GROUP...: one script at a time. Packages that another script has just installed are left out.
install_missing() (
  lock_alone "$build/packages.lock" "installs packages too"
  log=$build/packages.log
  missing=$(missing_packages "$@")
  [ -n "$missing" ] || exit 0
  say "this machine misses these Debian packages, they are installed now: $missing"
  command -v apt-get >/dev/null ||
    fail "no apt-get here: install the packages above (or their like) by hand"
  as_root apt-get --version >/dev/null || fail "without root rights they cannot be installed"
  # Lists that are empty or out of date make the first attempt fail.
  # shellcheck disable=SC2086 # a list of words
  if ! install_packages $missing >"$log" 2>&1; then
    say "fetching the package lists"
    as_root apt-get update >>"$log" 2>&1 || true
    install_packages $missing >"$log" 2>&1 ||
      fail "the packages above cannot be installed: $(first_complaint "$log")"
  fi
)

# first_complaint LOG: the first thing that apt-get or debootstrap complained of.
first_complaint() {
  local line
  line=$(grep -m 1 '^E: ' "$1" || tail -n 1 "$1")
  printf '%s (the whole output: %s)\n' "${line#E: }" "$1"
}

# Wine takes the system code page, 932, from the locale.
need_japanese_locale() {
  # One that has found it reads on: the signal to a `locale` that nobody reads would look like a missing one.
  locale -a | grep -ix 'ja_JP\.utf-\?8' >/dev/null && return
  say "this machine misses the locale ja_JP.UTF-8, it is made now"
  as_root localedef -i ja_JP -f UTF-8 ja_JP.UTF-8 || fail "the locale ja_JP.UTF-8 cannot be made"
}
