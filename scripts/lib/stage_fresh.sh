# The stage `fresh`: the commands that a new user tries first, in a minimal Debian that has only a clone of
# the project, at a path with a blank in it, with an empty environment.
#
# Packages are installed from scratch each time, so that a package missing in lib/packages.sh is noticed. The last
# commit is checked: a clone has nothing else.
# shellcheck shell=bash
: "${root:?common.sh comes first}" "${packages_fresh_root:?packages.sh}" "${failed:?stages.sh}" "${results:?}" \
  "${root_stages[*]:?}"
# shellcheck source=debian_root.sh
source "$root/scripts/lib/debian_root.sh"
# shellcheck source=lock.sh
source "$root/scripts/lib/lock.sh"

fresh_root=$build/fresh-root
fresh_project="/srv/the project"
# An ordinary user, who may become root by sudo.
fresh_user=stranger
# The PATH that Debian gives an ordinary user.
fresh_user_path=/usr/local/bin:/usr/bin:/bin:/usr/local/games:/usr/games

# Those of the root's stages that no other place runs.
left_to_fresh=()

stage_fresh() {
  local obstacle lock
  obstacle=$(fresh_obstacle)
  if [ -n "$obstacle" ]; then
    skip_fresh "$obstacle"
    return
  fi
  lock_open "$fresh_root.lock"
  lock=$lock_descriptor
  lock_wait "$lock" "$fresh_root.lock" "uses the fresh root too"
  if ! debian_root_make "$fresh_root"; then
    skip_fresh "the root cannot be made: $(debian_root_reason)"
  elif ! debian_root_fetches "$fresh_root"; then
    debian_root_remove "$fresh_root"
    skip_fresh "no packages can be fetched there: $(debian_root_reason)"
  else
    fresh_in_root
  fi
  exec {lock}>&-
}

# skip_fresh REASON: what was left to the root is done here.
skip_fresh() {
  local stage
  count_skipped "fresh: $1"
  for stage in "${left_to_fresh[@]}"; do
    # shellcheck disable=SC2046 # a list of words
    if (need_packages $(stage_groups "$stage")); then
      run_stage "$stage"
    else
      count_failed "$stage: its packages cannot be installed"
    fi
  done
}

fresh_in_root() {
  local before=$failed stage
  fresh_clone
  fresh_as_root
  fresh_make_user
  count_command fresh-demo-user fresh_run --user "$fresh_user" \
    PATH="$fresh_user_path" "$fresh_project/scripts/demo" --seconds 5
  count_command fresh-demo-user-page fresh_demo_page
  # A root of their own: what the demo installed would hide what the tests lack. One in which something
  # failed stays.
  if [ "$failed" -eq "$before" ]; then debian_root_make "$fresh_root" && fresh_clone; fi
  for stage in "${root_stages[@]}"; do
    count_command "fresh-$stage" fresh_test "$stage"
    say "fresh-$stage: $(tail -n 1 "$results/fresh-$stage.log")"
  done
  if [ "$failed" -eq "$before" ]; then
    debian_root_remove "$fresh_root"
  else
    say "the root is left as it is: $fresh_root (scripts/lib/fresh-run runs a command in it)"
  fi
}

fresh_obstacle() {
  local obstacle
  obstacle=$(commit_obstacle)
  if [ -n "$obstacle" ]; then echo "this checkout cannot be cloned: $obstacle"; else debian_root_obstacle; fi
}

# Nothing of the clone points outside it.
fresh_clone() {
  local clone=$build/fresh-clone state=""
  [ -z "$(git -C "$root" status --porcelain)" ] || state=", without the changes that are not committed"
  say "checking the commit $(git -C "$root" rev-parse --short HEAD)$state"
  rm -rf "$clone"
  git clone --quiet --no-local --depth 1 "$root" "$clone"
  as_root cp -r "$clone" "$fresh_root$fresh_project"
  rm -rf "$clone"
}

# What root does in a fresh container. The demo comes first: it finds nothing.
fresh_as_root() {
  local scripts=$fresh_project/scripts
  count_command fresh-demo fresh_first_demo
  count_command fresh-demo-page fresh_demo_page
  count_command fresh-demo-offline fresh_second_demo
  count_command fresh-packages-offline fresh_packages_offline
  count_command fresh-build-x86 fresh_run "$scripts/build" x86
  count_command fresh-program-x86 fresh_program_x86
}

# Seconds after which a command is stuck; on two cores the longest takes two to three minutes, or as long as the stages
# in front of it take.
fresh_stuck=3600

fresh_run() { timeout --foreground "$fresh_stuck" "$root/scripts/lib/fresh-run" "$@"; }

fresh_check() { run_python scripts/lib/fresh_check.py "$@"; }

# What the last command in the root said.
fresh_said=$results/fresh-said.txt

# The output says what happens, and nothing else.
fresh_first_demo() {
  fresh_run "$fresh_project/scripts/demo" --seconds 5 2>&1 | tee "$fresh_said" || return
  ! grep -v '^-- ' "$fresh_said"
}

# Everything is there: nothing is fetched, and nothing built.
fresh_second_demo() {
  fresh_run --offline "$fresh_project/scripts/demo" --seconds 5 2>&1 | tee "$fresh_said" || return
  ! grep building "$fresh_said"
}

fresh_demo_page() {
  local demo=$fresh_project/build/demo figures
  cp "$fresh_root$demo"/page.{txt,png} "$results/" && fresh_check page "$results/page.txt" || return
  figures=$(fresh_run /usr/bin/identify -format '%w %h %k' "$demo/page.png") || return
  # shellcheck disable=SC2086 # three numbers
  fresh_check picture $figures
}

# Three files and nothing else, for the right Windows.
fresh_program_x86() {
  local folder=$fresh_root$fresh_project/build/windows-x86/program
  (cd "$folder" && printf '%s\n' Tolvane.exe qxt100.dll tolvane-log.exe | LC_ALL=C diff - <(LC_ALL=C ls -A)) &&
    run_python tests/release/check_program.py "$folder" i386
}

# A package that is missing while nothing can be fetched: one sentence says so, and nothing else is tried.
fresh_packages_offline() {
  if fresh_run --offline "$fresh_project/scripts/test" --only checks 2>&1 | tee "$fresh_said"; then
    echo "the command ended well without its packages"
    return 1
  fi
  [ "$(grep -vc '^-- ' "$fresh_said")" -eq 1 ] &&
    tail -n 1 "$fresh_said" | grep -qiE '^error: the packages above cannot be installed: .*(resolv|connect)'
}

# fresh_test STAGE: nothing fails there, and nothing is skipped.
fresh_test() {
  fresh_run "$fresh_project/scripts/test" --only "$1" 2>&1 | tee "$fresh_said" &&
    tail -n 1 "$fresh_said" | grep -qE '^[1-9][0-9]* passed, 0 failed, 0 skipped$'
}

# Root's folder becomes the user's, with what was built there: to build it once more would cost minutes. Root's
# demo goes, and his Wine prefixes, which no other user may use. One package and the locale go too, so that the
# user's demo has to become root.
fresh_make_user() {
  local log=$results/fresh-user.log
  say "making the user $fresh_user in the root"
  # A list of words, and a script text for the inner shell.
  # shellcheck disable=SC2086,SC2016
  {
    debian_root_install "$fresh_root" $packages_fresh_root &&
      debian_root_enter "$fresh_root" PATH="$debian_root_path" sh -ec '
        apt-get remove -y ninja-build
        localedef --delete-from-archive ja_JP.utf8
        useradd --create-home --shell /bin/bash "$1"
        echo "$1 ALL=(ALL) NOPASSWD: ALL" >"/etc/sudoers.d/$1"
        rm -rf "$2"/build/demo "$2"/build/wine-prefix*
        chown -R "$1:" "$2"' sh "$fresh_user" "$fresh_project"
  } >"$log" 2>&1 || say "the user cannot be made (the whole output: $log)"
}
