# The one list of Debian packages that the project needs, in groups, and their installation.
# shellcheck shell=bash
# shellcheck disable=SC2034 # the lists are read through ${!list}
: "${build:?common.sh comes first}"

packages_build="cmake ninja-build g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix
  binutils-mingw-w64 g++ python3"
packages_run="wine wine64 fonts-wine xvfb fonts-ipafont-gothic imagemagick locales"
# Readers of workbooks, .xlsx and .xls.
packages_books="python3-openpyxl python3-xlrd"
# libgtest-dev brings GoogleTest's source, which is compiled for Windows here; libclang-rt holds
# libFuzzer; debootstrap makes the root in which the 32-bit program runs.
packages_test="git libgtest-dev libgmock-dev libbenchmark-dev clang libclang-rt-14-dev
  clang-format shellcheck debootstrap $packages_books"
# pandoc makes the manual's page.
packages_package="git pandoc"
# What bench/compare measures beside Tolvane.
packages_compare="can-utils python3-can"

package_installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

install_packages() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@"
}

# need_packages GROUP...: installs what misses of the groups above, after saying so.
need_packages() {
  local group list package missing=() log=$build/packages.log
  for group in "$@"; do
    list=packages_$group
    for package in ${!list}; do
      package_installed "$package" || missing+=("$package")
    done
  done
  if [ ${#missing[@]} -gt 0 ]; then
    say "this machine misses these Debian packages, they are installed now: ${missing[*]}"
    command -v apt-get >/dev/null ||
      fail "no apt-get here: install the packages above (or their like) by hand"
    mkdir -p "$build"
    # Lists that are empty or out of date make the first attempt fail.
    if ! install_packages "${missing[@]}" >"$log" 2>&1; then
      say "fetching the package lists"
      as_root apt-get update >>"$log" 2>&1 || true
      install_packages "${missing[@]}" >>"$log" 2>&1 ||
        fail "these packages cannot be installed: ${missing[*]} (see $log)"
    fi
  fi
  case " $* " in *" run "*) need_japanese_locale ;; esac
}

# Wine takes the system code page, 932, from the locale.
need_japanese_locale() {
  locale -a | grep -qix 'ja_JP\.utf-\?8' && return
  say "this machine misses the locale ja_JP.UTF-8, it is made now"
  as_root localedef -i ja_JP -f UTF-8 ja_JP.UTF-8 || fail "the locale ja_JP.UTF-8 cannot be made"
}
