#!/usr/bin/env python3
"""Tests of check_release: every way in which a release can be wrong is reported."""

import hashlib
import io
import unittest
import zipfile

import check_release as check

PICTURE = '<img src="data:image/png;base64,iVBORw0KGgoAAAA" alt="" />'


def archive(**files: bytes) -> bytes:
    out = io.BytesIO()
    with zipfile.ZipFile(out, "w") as target:
        for name, content in files.items():
            target.writestr(zipfile.ZipInfo(f"folder/{name}"), content)
    return out.getvalue()


class Comparison(unittest.TestCase):
    def test_equal_releases_have_no_difference(self):
        release = {"a.zip": archive(x=b"1"), "SHA256SUMS": b"sums"}
        self.assertEqual([], check.compare(release, dict(release)))

    def test_a_different_file_in_an_archive_is_named(self):
        self.assertEqual(["a.zip: x differs"],
                         check.compare({"a.zip": archive(x=b"1")}, {"a.zip": archive(x=b"2")}))

    def test_an_archive_may_not_differ_around_equal_files(self):
        self.assertEqual(["a.zip differs, and its files do not"],
                         check.compare({"a.zip": archive(x=b"1", y=b"2")},
                                       {"a.zip": archive(y=b"2", x=b"1")}))

    def test_missing_files_are_told(self):
        self.assertEqual(["a.zip was made the first time alone"],
                         check.compare({"a.zip": archive()}, {}))
        self.assertEqual(["a.zip was made the second time alone"],
                         check.compare({}, {"a.zip": archive()}))


class Sums(unittest.TestCase):
    def test_they_fit_or_are_told(self):
        line = f"{hashlib.sha256(b'content').hexdigest()}  a.zip\n".encode()
        self.assertEqual([], check.check_sums({"a.zip": b"content", "SHA256SUMS": line}))
        self.assertEqual(1, len(check.check_sums({"a.zip": b"changed", "SHA256SUMS": line})))
        self.assertEqual(1, len(check.check_sums({"a.zip": b"content"})))


class Readme(unittest.TestCase):
    def problems(self, content: bytes) -> list[str]:
        return check.check_readme(content, "c0ffee")

    def test_a_good_one_passes(self):
        self.assertEqual([], self.problems("\ufeff日本語\r\nc0ffee\r\n".encode()))

    def test_each_fault_is_told(self):
        self.assertIn("byte order mark", self.problems(b"c0ffee\r\n")[0])
        self.assertIn("CR LF", self.problems(b"\xef\xbb\xbfone\nc0ffee\r\n")[0])
        self.assertIn("CR LF", self.problems(b"\xef\xbb\xbfc0ffee")[0])
        self.assertIn("filled in", self.problems(b"\xef\xbb\xbf@TOLVANE_BITS@ c0ffee\r\n")[0])
        self.assertIn("commit", self.problems(b"\xef\xbb\xbftext\r\n")[0])


class Manual(unittest.TestCase):
    SOURCE = "# Title\n\n## One\n\n![a](images/a.png)\n"

    def test_a_good_one_passes(self):
        self.assertEqual([], check.check_manual(f'<h2 id="a">One</h2><a href="#a">{PICTURE}', self.SOURCE))

    def test_each_fault_is_told(self):
        chapter = '<h2 id="a">One</h2>'
        self.assertIn("0 pictures of 1", check.check_manual(chapter, self.SOURCE)[0])
        self.assertIn("0 chapters of 1", check.check_manual(PICTURE, self.SOURCE)[0])
        for pointer in ('<img src="images/a.png">', '<link href="https://elsewhere.example/style.css">'):
            problems = check.check_manual(chapter + PICTURE + pointer, self.SOURCE)
            self.assertTrue(any("points at" in problem for problem in problems), problems)


class Paths(unittest.TestCase):
    def test_a_file_that_tells_its_birth_place_is_named(self):
        release = {"a.zip": archive(x=b"..\0/home/me/tolvane/src/a.cpp\0", y=b"./src/a.cpp"),
                   "SHA256SUMS": b"/home/me/tolvane"}
        self.assertEqual(["a.zip: x holds the path /home/me/tolvane"],
                         check.find_path(release, "/home/me/tolvane"))


class Archives(unittest.TestCase):
    def test_more_or_fewer_files_are_told(self):
        self.assertIn("the archive holds ['Tolvane.exe']",
                      check.check_archive({"Tolvane.exe": b""}, {}, "x64", "", "")[0])

    def test_a_missing_archive_is_told(self):
        problems = check.check_release({"SHA256SUMS": b""}, "", "")
        self.assertEqual([f"there is not one archive for {arch}: []" for arch in ("x64", "x86")], problems)


if __name__ == "__main__":
    unittest.main()
