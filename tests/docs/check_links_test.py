#!/usr/bin/env python3
"""Tests of check_links: what is absent is found, what is there is not."""

import pathlib
import tempfile
import unittest

import check_links


class Links(unittest.TestCase):
    def check(self, text: str) -> list[str]:
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "scripts").mkdir()
            (root / "scripts" / "demo").touch()
            (root / "OTHER.md").write_text("# One thing, and two\n\n```\n# no heading\n```\n",
                                           encoding="utf-8")
            document = root / "README.md"
            document.write_text(text, encoding="utf-8")
            return check_links.check_document(root, document)

    def test_an_absent_file_is_found(self):
        self.assertEqual(["README.md: gone.md is not there"], self.check("see [it](gone.md)"))

    def test_an_absent_picture_is_found(self):
        self.assertEqual(["README.md: docs/a.png is not there"], self.check('![a](docs/a.png "t")'))

    def test_an_absent_heading_is_found(self):
        self.assertEqual(["README.md: OTHER.md#two names no heading"],
                         self.check("[it](OTHER.md#two)"))
        self.assertEqual(["README.md: OTHER.md#no-heading names no heading"],
                         self.check("[it](OTHER.md#no-heading)"))

    def test_an_absent_path_in_code_marks_is_found(self):
        self.assertEqual(["README.md: `scripts/gone` is not there"], self.check("run `scripts/gone`"))

    def test_what_is_there_is_not_found(self):
        self.assertEqual([], self.check("# Own\n[a](OTHER.md) [b](OTHER.md#one-thing-and-two) "
                                        "[c](#own) `scripts/demo --seconds 5` "
                                        "[d](https://tolvane.example/)"))

    def test_fenced_text_is_left_alone(self):
        self.assertEqual([], self.check("```\n[it](gone.md)\n```\n"))


if __name__ == "__main__":
    unittest.main()
