#!/usr/bin/env python3
"""Tests of check_includes: each kind of bad include is found, and good ones are not."""

import unittest

import check_includes as check

PARTS = check.read_floors("""
# comment
3  windows      : platform/windows/*
3  memory       : platform/memory/*
2  view         : view/*
1  table        : view/table*
0  ground       : platform/* run/*
""")


def floors(**sources: str) -> list[str]:
    """Names of sources: `__` for the slash, `_h` for the suffix."""
    return check.check_floors(
        {name.replace("__", "/").removesuffix("_h") + ".h": text for name, text in sources.items()},
        PARTS)


class Floors(unittest.TestCase):
    def test_an_include_of_the_own_part_or_below_is_allowed(self):
        self.assertEqual([], floors(view__a_h='#include "view/b.h"\n#include "run/x.h"',
                                    view__b_h='#include "view/table.h"', view__table_h="",
                                    run__x_h=""))

    def test_an_include_of_a_floor_above_is_found(self):
        self.assertEqual(['src/run/x.h: on the floor of ground, may not include "view/a.h" of view'],
                         floors(run__x_h='#include "view/a.h"', view__a_h=""))

    def test_the_longest_pattern_decides_within_a_folder(self):
        problems = floors(view__table_h='#include "view/a.h"', view__a_h="")
        self.assertEqual(
            ['src/view/table.h: on the floor of table, may not include "view/a.h" of view'],
            problems)

    def test_siblings_of_one_floor_may_not_include_each_other(self):
        problems = floors(platform__memory__a_h='#include "platform/windows/b.h"',
                          platform__windows__b_h="")
        self.assertEqual(1, len(problems))
        self.assertIn("may not include", problems[0])

    def test_a_file_on_no_floor_is_found(self):
        self.assertEqual(["src/lost/a.h: on no floor of floors.txt"], floors(lost__a_h=""))

    def test_a_quoted_include_of_no_file_is_found(self):
        self.assertEqual(['src/run/x.h: "run/gone.h" is no file below src/'],
                         floors(run__x_h='#include "run/gone.h"'))


class Circles(unittest.TestCase):
    def test_a_circle_is_told_once(self):
        sources = {"a.h": '#include "b.h"', "b.h": '#include "c.h"', "c.h": '#include "a.h"',
                   "d.h": '#include "a.h"'}
        self.assertEqual(["files include each other: a.h -> b.h -> c.h -> a.h"],
                         check.check_circles(sources))

    def test_two_roads_to_one_file_are_no_circle(self):
        sources = {"a.h": '#include "b.h"\n#include "c.h"', "b.h": '#include "c.h"', "c.h": ""}
        self.assertEqual([], check.check_circles(sources))


class Windows(unittest.TestCase):
    def test_its_headers_are_found_outside_its_folders(self):
        for header in ("windows.h", "Windows.h", "winuser.h", "oleauto.h", "richedit.h"):
            with self.subTest(header):
                problems = check.check_windows({"src/view/a.cpp": f"#include <{header}>"})
                self.assertEqual(1, len(problems), problems)

    def test_its_macros_are_found_outside_its_folders(self):
        self.assertEqual(1, len(check.check_windows({"src/run/a.h": "#ifdef _WIN32\n#endif"})))
        self.assertEqual(
            1, len(check.check_windows({"src/run/a.h": "# if defined(_WIN64)\n#endif"})))

    def test_its_folders_may_use_it(self):
        for folder in check.WINDOWS_FOLDERS:
            with self.subTest(folder):
                self.assertEqual([], check.check_windows({folder + "a.cpp": "#include <windows.h>"}))

    def test_the_standard_library_is_not_taken_for_it(self):
        self.assertEqual([], check.check_windows({"src/run/a.h": "#include <string>\n"}))


class Texts(unittest.TestCase):
    def test_comments_hide_includes_and_keep_lines(self):
        text = check.strip_comments('/* #include "a.h"\n*/\n// #include "b.h"\n#include "c.h"\n')
        self.assertEqual([('"', "c.h")], check.includes_of(text))
        self.assertEqual(4, text.count("\n"))

    def test_a_drawing_that_differs_from_the_table_is_found(self):
        drawing = check.read_drawing("text\n```floors\nwindows  memory    outsiders\n"
                                     "view      rules\ntable     tables\nground    floor\n```\n")
        self.assertEqual([["windows", "memory"], ["view"], ["table"], ["ground"]], drawing)
        self.assertEqual([], check.compare_drawing(PARTS, drawing))
        self.assertEqual(1, len(check.compare_drawing(PARTS, drawing[1:])))
        self.assertEqual(1, len(check.compare_drawing(PARTS, [])))


if __name__ == "__main__":
    unittest.main()
