# The parts of a release: the program built from nothing, its debug symbols, the manual, the archives.
#
# Everything is built in separate folders. The ordinary build folders may contain leftovers of earlier builds,
# objects of a compiler cache and a developer's own flags, so their program may differ from that of the commit.
# shellcheck shell=bash
: "${build:?common.sh comes first}" "${root:?}" "${files:?}" "${seconds:?}" "${compile_together:?compile.sh}"

release_files="Tolvane.exe qxt100.dll tolvane-log.exe"

# unswayed COMMAND ARGS: runs it without the caller's compiler flags, caches, time zone and language.
unswayed() {
  env -i PATH="$PATH" HOME="$HOME" LC_ALL=C.UTF-8 TZ=UTC SOURCE_DATE_EPOCH="$seconds" "$@"
}

# release_folder ARCH: the name of an archive and of the folder in it.
release_folder() { echo "tolvane-$(cat "$build/release-windows-$1/product/version.txt")-windows-$1"; }

release_build() {
  local arch=$1 folder=$build/release-windows-$1
  rm -rf "$folder"
  (cd "$root" && quietly "$folder-configure.log" unswayed cmake --preset "windows-$arch" -B "$folder" \
    "${compile_together[@]}") &&
    quietly "$folder-build.log" unswayed cmake --build "$folder" --target tolvane qxt100 tolvane_log
}

# release_split ARCH SYMBOLS: the program's files without debug symbols in the archive's folder, the symbols
# below the folder SYMBOLS. Each file names its symbols, so a debugger finds them beside it.
release_split() {
  local arch=$1 symbols=$2/$1 triple=x86_64 name target
  [ "$arch" = x64 ] || triple=i686
  target=$files/$(release_folder "$arch")
  mkdir -p "$target" "$symbols"
  for name in $release_files; do
    cp "$build/release-windows-$arch/program/$name" "$symbols/$name.whole"
    # The date that is kept is the one in the file's header.
    (cd "$symbols" &&
      unswayed $triple-w64-mingw32-objcopy -p --only-keep-debug "$name.whole" "$name.debug" &&
      unswayed $triple-w64-mingw32-objcopy -p --strip-all --add-gnu-debuglink="$name.debug" \
        "$name.whole" "$target/$name" && rm "$name.whole") || return 1
  done
}

# release_manual FILE FOOTER: the manual as one page that holds its pictures.
release_manual() {
  local file=$1 footer=$2
  (cd "$root/docs" && unswayed pandoc --from gfm+east_asian_line_breaks --to html5 --wrap none \
    --toc --toc-depth 2 --self-contained --template "$root/docs/release/manual.html" \
    --metadata pagetitle="Tolvane 取扱説明書" --variable footer="$footer" --output "$file" \
    manual.ja.md)
}

# release_readme ARCH FILE COMMIT: as Notepad of any Windows shows it, with CR LF and a byte order mark.
release_readme() {
  { printf '\xef\xbb\xbf' && { cat "$build/release-windows-$1/product/README.txt" &&
    printf '  コミット: %s\n' "$3"; } | sed 's/$/\r/'; } >"$2"
}

# release_zip FOLDER: the archive of a folder of $files, beside it.
release_zip() {
  unswayed "$root/scripts/lib/python-run" "$root/scripts/lib/write_zip.py" "$files/$1.zip" "$files/$1" \
    "$seconds"
}
