# The root in which the 32-bit program runs: Debian for i386 with a 32-bit Wine, below build/.
#
# A root of its own leaves the machine's package set-up alone; adding i386 there can put its package
# lists out of step with what is installed.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}"

x86_root=$build/x86-root
x86_packages="wine wine32 fonts-wine fonts-ipafont-gothic locales"

# x86_possible: prints why the root cannot be made or entered here, nothing when it can.
x86_obstacle() {
  [ "$(id -u)" -eq 0 ] || { echo "making it needs root"; return; }
  case $(uname -m) in x86_64 | i?86) ;; *) echo "this machine runs no 32-bit x86 code"; return ;; esac
  command -v debootstrap >/dev/null || { echo "debootstrap is not installed"; return; }
  unshare --mount true 2>/dev/null || { echo "mounts are not allowed here"; return; }
}

# x86_make_root: false when it could not be made; the reason stands in build/x86-root.log.
x86_make_root() {
  local log=$build/x86-root.log
  # A root made for another list of packages is made anew.
  [ "$(cat "$x86_root/tolvane-ready" 2>/dev/null)" = "$x86_packages" ] && return
  say "making the 32-bit root $x86_root (about a minute, 850 MB)"
  rm -rf "$x86_root"
  mkdir -p "$x86_root"
  debootstrap --arch=i386 --variant=minbase bookworm "$x86_root" http://deb.debian.org/debian \
    >"$log" 2>&1 || return 1
  # shellcheck disable=SC2086 # a list of words
  x86_enter /usr/bin/env DEBIAN_FRONTEND=noninteractive \
    sh -c "apt-get update && apt-get install -y --no-install-recommends $x86_packages && apt-get clean &&
           localedef -i ja_JP -f UTF-8 ja_JP.UTF-8" >>"$log" 2>&1 || return 1
  echo "$x86_packages" >"$x86_root/tolvane-ready"
}

# x86_enter COMMAND ARGS: runs a command in the root. The project's folder and the X server's sockets
# stand there under their own names; the mounts end with the command.
x86_enter() {
  # The script text is for the inner shell.
  # shellcheck disable=SC2016
  unshare --mount --propagation private sh -c '
    root=$1 project=$2
    shift 2
    mkdir -p "$root$project" "$root/tmp/.X11-unix" /tmp/.X11-unix
    mount -t proc proc "$root/proc"
    mount -t tmpfs tmpfs "$root/dev/shm"
    mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
    mount --bind "$project" "$root$project"
    exec chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root \
      DISPLAY="${DISPLAY:-}" "$@"' sh "$x86_root" "$root" "$@"
}
