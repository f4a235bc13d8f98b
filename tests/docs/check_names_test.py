#!/usr/bin/env python3
"""Tests of check_names: what is not there is found, what is there is not."""

import pathlib
import tempfile
import unittest

import check_names

SOURCE = """#include "log.h"
// Forget is only told.
constexpr int kMost = 3;
void Log::Write(int count) {
  Flush(count);
}
TEST(Logs, AreWritten) {}
TEST_F(
    Logs, AreWrittenOverTwoLines) {}
TYPED_TEST(Tables, AreCleared) {}
"""
HEADER = """class Log {
  void Close();  // not Open
  void Write(int count) {
    Count(count);
  }
};
"""
ENTRY = "\n## Logs\n\n- **Odd.** It is so.\n  Stays: files. `log.cpp: Write`; `Logs.AreWritten`\n"


class Names(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "src/logging").mkdir(parents=True)
        (self.root / "src/logging/log.cpp").write_text(SOURCE, encoding="utf-8")
        (self.root / "src/logging/log.h").write_text(HEADER, encoding="utf-8")

    def check(self, text: str) -> list[str]:
        sources = check_names.sources_of(self.root)
        return check_names.check_document("A.md", text, sources, check_names.tests_of(sources))

    def test_definitions_and_tests_that_are_there_are_fine(self):
        self.assertEqual([], self.check("`log.cpp: Write` `log.cpp: kMost, Write` `logging/log.cpp: Write` "
                                        "`log.h: Close` `log.h: Log` `Logs.AreWritten` "
                                        "`Logs.AreWrittenOverTwoLines` `Tables.AreCleared`"))

    def test_a_mark_may_go_over_the_end_of_a_line(self):
        self.assertEqual(["A.md: `log.cpp` does not define Gone"], self.check("`log.cpp:\n  Write, Gone`"))

    def test_a_file_that_is_not_there_is_found(self):
        self.assertEqual(["A.md: `gone.cpp` is not there"], self.check("`gone.cpp: Write`"))
        self.assertEqual(["A.md: `view/log.cpp` is not there"], self.check("`view/log.cpp: Write`"))

    def test_what_a_file_only_uses_is_no_definition(self):
        self.assertEqual(["A.md: `log.cpp` does not define Flush"], self.check("`log.cpp: Flush`"))
        self.assertEqual(["A.md: `log.h` does not define Count"], self.check("`log.h: Count`"))

    def test_what_is_only_told_is_no_definition(self):
        self.assertEqual(["A.md: `log.cpp` does not define Forget"], self.check("`log.cpp: Forget`"))
        self.assertEqual(["A.md: `log.h` does not define Open"], self.check("`log.h: Open`"))

    def test_a_test_that_is_not_there_is_found(self):
        self.assertEqual(["A.md: there is no test `Logs.AreLost`"], self.check("`Logs.AreLost`"))

    def test_other_code_marks_and_fenced_text_are_left_alone(self):
        self.assertEqual([], self.check("`Tolvane.exe` `config.dat` `scripts/test`\n```\n`gone.cpp: Gone`\n```\n"))


class Entries(unittest.TestCase):
    def check(self, text: str) -> list[str]:
        return check_names.check_entries("A.md", text)

    def test_a_whole_entry_is_fine(self):
        self.assertEqual([], self.check("# Oddities\n\n- **Files.** A reason.\n" + ENTRY))

    def test_an_entry_without_code_test_or_reason_is_found(self):
        self.assertEqual(["A.md: 'Odd.' names no place in the code"], self.check(ENTRY.replace("log.cpp: Write", "x")))
        self.assertEqual(["A.md: 'Odd.' names no test"], self.check(ENTRY.replace("Logs.AreWritten", "x")))
        self.assertEqual(["A.md: 'Odd.' does not say why it stays"], self.check(ENTRY.replace("Stays: ", "")))

    def test_the_next_entry_does_not_serve_for_one_without(self):
        bare = "\n## Logs\n\n- **Bare.** It is so.\n" + ENTRY.replace("\n## Logs\n\n", "")
        self.assertEqual(3, len(self.check(bare)))


if __name__ == "__main__":
    unittest.main()
