# Minimal Debian roots below build/, made by debootstrap, entered in namespaces of their own.
#
# Making and entering need root rights; an ordinary user's come from sudo, as for packages.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}" "${packages_roots:?packages.sh comes first}"

debian_release=bookworm
debian_root_path=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin

# debian_root_obstacle: prints why no root can be made or entered here, nothing when it can. Operations that
# may be forbidden are tried.
debian_root_obstacle() {
  local said
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "it needs root rights, and this machine has no sudo"; return; }
    # Between the lines of other stages nobody would know what the question is for.
    [ ! -t 2 ] || sudo -n true 2>/dev/null || say "a Debian root needs root rights, so sudo may ask for a password" >&2
    # Once asked, and then in the background, where nobody can answer.
    said=$(as_root true 2>&1 && sudo -n true 2>&1) ||
      { echo "it needs root rights, and sudo says: $(reason_of "$said")"; return; }
  fi
  [ -e /proc/self/mountinfo ] || { echo "/proc is not mounted here"; return; }
  command -v debootstrap >/dev/null || { echo "debootstrap is not installed"; return; }
  mkdir -p "$build"
  can_have debian_root_probe
}

# reason_of SAID: the last line of what sudo said, which with some settings tells behind it that it told others too.
reason_of() {
  local said=${1%$'\n'This incident *}
  echo "${said##*$'\n'}"
}

# A root that shows this machine's own files.
debian_root_probe() {
  local said probe
  probe=$(mktemp -d "$build/root-probe.XXXXXX")
  at_exit "debian_root_remove ${probe@Q}"
  mkdir -p "$probe"/{proc,dev/shm,dev/pts}
  said=$(debian_root_enter --bind / "$probe" /usr/bin/true 2>&1) ||
    echo "a root cannot be entered here: ${said##*$'\n'}"
}

# debian_root_make FOLDER [ARCHITECTURE]: a bare Debian there, for the machine's own architecture if none
# is named. False when it cannot be made; debian_root_reason tells why.
debian_root_make() {
  local folder=$1 arch=${2:-$(dpkg --print-architecture)} archive
  archive=$build/roots/$debian_release-$arch.tar
  debian_root_log=$build/roots/$debian_release-$arch.log
  debian_root_remove "$folder"
  mkdir -p "$folder" "$build/roots"
  [ -e "$archive" ] || debian_root_archive "$arch" "$folder" "$archive" || return
  as_root tar --directory "$folder" --numeric-owner -xpf "$archive" >"$debian_root_log" 2>&1 || return
  debian_root_network "$folder"
}

# debian_root_archive ARCHITECTURE FOLDER ARCHIVE: makes the archive by way of the folder, which is empty
# before and after.
debian_root_archive() {
  local arch=$1 folder=$2 archive=$3 link new
  say "making a bare Debian root for $arch, a minute or two; it is kept as $archive"
  # debootstrap fails when the folder's path has a blank in it.
  link=$(mktemp -d)
  # Whoever makes it holds the lock of its root.
  new=$archive.new
  at_exit "rm -rf ${link@Q} ${new@Q}"
  ln -s "$folder" "$link/root"
  http_proxy=$(debootstrap_proxy) as_root debootstrap --variant=minbase --arch="$arch" "$debian_release" "$link/root" \
    >"$debian_root_log" 2>&1 || { rm -r "$link"; return 1; }
  rm -r "$link"
  # The root need not survive a power failure, and packages are installed several times as fast without
  # waiting for the disk.
  as_root tee "$folder/etc/dpkg/dpkg.cfg.d/unsafe-io" <<<force-unsafe-io >/dev/null
  as_root chroot "$folder" /usr/bin/env PATH="$debian_root_path" apt-get clean
  as_root tar --directory "$folder" --numeric-owner -cf - . >"$new" 2>>"$debian_root_log" &&
    mv "$new" "$archive" && debian_root_remove "$folder" && mkdir "$folder"
}

# It reads no settings of apt, where Debian's installer writes the proxy. As for apt, what is set there is before
# the environment's.
debootstrap_proxy() {
  local set=""
  eval "$(apt-config shell set Acquire::http::Proxy 2>/dev/null || true)"
  set=${set:-${http_proxy:-}}
  [ "$set" = DIRECT ] || echo "$set"
}

# debian_root_network FOLDER: gives the root this machine's name resolution and settings for package servers.
debian_root_network() {
  local file
  for file in resolv.conf hosts; do
    [ ! -e "/etc/$file" ] || as_root cp -L "/etc/$file" "$1/etc/$file"
  done
  { debian_root_proxies; apt-config dump | grep -E '^Acquire::(https?::|Check-)' || true; } |
    as_root tee "$1/etc/apt/apt.conf.d/00machine" >/dev/null
}

# The proxies of the environment, which is empty in the root. Settings of this machine that follow them are used instead.
debian_root_proxies() {
  local scheme proxy
  for scheme in http https; do
    proxy=${scheme}_proxy
    [ -z "${!proxy:-}" ] || printf 'Acquire::%s::Proxy "%s";\n' "$scheme" "${!proxy}"
  done
}

debian_root_reason() { first_complaint "$debian_root_log"; }

debian_root_remove() {
  [ -e "$1" ] || return 0
  debian_root_unmount "$1"
  as_root rm -rf --one-file-system "$1"
}

# Where mounts could not be kept private from the start, the root's own one is seen outside.
debian_root_unmount() {
  while mountpoint -q "$1"; do as_root umount "$1" || return; done
}

# debian_root_fetches FOLDER: whether packages can be fetched there; debian_root_reason tells why not. The root's own
# lists stay as they are.
debian_root_fetches() {
  # The script text is for the inner shell.
  # shellcheck disable=SC2016
  debian_root_enter "$1" PATH="$debian_root_path" no_proxy="${no_proxy:-}" sh -c 'mkdir -p "$1/partial"
    apt-get -o Dir::State::Lists="$1" -o APT::Update::Error-Mode=any update || code=$?
    rm -r "$1"
    exit "${code:-0}"' sh /tmp/lists >"$debian_root_log" 2>&1
}

# debian_root_install FOLDER PACKAGE...: output goes to the standard output.
debian_root_install() {
  local folder=$1
  shift
  # The script text is for the inner shell.
  # shellcheck disable=SC2016
  debian_root_enter "$folder" PATH="$debian_root_path" no_proxy="${no_proxy:-}" DEBIAN_FRONTEND=noninteractive \
    sh -c 'apt-get update && apt-get install -y --no-install-recommends "$@" && apt-get clean' sh "$@"
}

# debian_root_enter [--offline] [--user USER[:GROUP]] [--bind PATH]... FOLDER [NAME=VALUE...] COMMAND ARGS:
# runs a command in the root as root, or as the user, with the given paths mounted at the same place. The status
# is that of the command. Afterwards nothing runs or is mounted there any more, even when the script ends early.
debian_root_enter() {
  local code=0
  debian_root_start "$@"
  wait "$debian_root_process" || code=$?
  debian_root_leave
  return "$code"
}

# debian_root_start [--number FILE] and as above: does not wait for the command. debian_root_leave ends it. The
# file gets the number of a process for debian_root_join.
debian_root_start() {
  local namespaces=(--mount --pid --fork --kill-child) user=0:0 number=/dev/null paths=() folder become_root
  while [[ $1 == --* ]]; do
    case $1 in
      --offline) namespaces+=(--net) ;;
      --user) user=$2; shift ;;
      --number) number=$2; shift ;;
      --bind) paths+=("$2"); shift ;;
    esac
    shift
  done
  folder=$1
  shift
  # In a plain chroot, whose root is no mount point, the mounts that are there cannot be made private.
  as_root unshare --mount --propagation private true 2>/dev/null || namespaces+=(--propagation unchanged)
  find_become_root
  # The root ends with a line on its standard input, or when this script no longer holds the other end.
  exec {debian_root_hold}> >(exec "${become_root[@]}" unshare "${namespaces[@]}" \
    "$root/scripts/lib/debian-root-init" "$folder" "$user" "$number" "${paths[@]}" -- "$@")
  debian_root_process=$! debian_root_entered=$folder
  at_exit debian_root_leave
}

# debian_root_join NUMBER USER[:GROUP] FOLDER [NAME=VALUE...] COMMAND ARGS: runs a command in a root that another
# script has started, beside what runs there.
debian_root_join() {
  # The mounts begin at the machine's own root, which is not this one's in a plain chroot.
  (debian_root_let_go && as_root nsenter --target "$1" --root --mount --pid setpriv --pdeathsig KILL \
    chroot --userspec="$2" "$3" /usr/bin/env -i "${@:4}" </dev/null)
}

# debian_root_let_go: for a child process that may outlive this script, with which the root ends all the same.
debian_root_let_go() { [ -z "${debian_root_hold:-}" ] || exec {debian_root_hold}>&-; }

debian_root_leave() {
  [ -n "${debian_root_process:-}" ] || return 0
  # What runs in the root may have inherited that end, so to let go of it is not enough. A root that has ended
  # reads nothing, and the signal of that must not end this script.
  (echo >&"$debian_root_hold") 2>/dev/null || true
  exec {debian_root_hold}>&-
  wait "$debian_root_process" || true
  debian_root_process="" debian_root_hold=""
  debian_root_unmount "$debian_root_entered"
}
