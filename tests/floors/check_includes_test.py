#!/usr/bin/env python3
"""Tests of check_includes: each kind of bad include is found, and good ones are not."""

import unittest
import unittest.mock

import check_includes as check

FLOORS = check.read_floors("""
# comment
3  platform/windows platform/memory
2  view
1  view/tables
0  platform run
""")


def named(sources: dict[str, str]) -> dict[str, str]:
    """Names of sources: `__` for the slash, `_h` for the suffix."""
    return {name.replace("__", "/").removesuffix("_h") + ".h": text for name, text in sources.items()}


def floors(**sources: str) -> list[str]:
    return check.check_floors(named(sources), FLOORS)


def uses(room: str, used: str, **sources: str) -> list[str]:
    return check.check_uses({room: f"tolvane_room(USES {used})"}, FLOORS, named(sources))


class Floors(unittest.TestCase):
    def test_an_include_of_the_own_room_or_below_is_allowed(self):
        self.assertEqual([], floors(view__a_h='#include "view/b.h"\n#include "run/x.h"',
                                    view__b_h='#include "view/tables/t.h"', view__tables__t_h="",
                                    run__x_h=""))

    def test_an_include_of_a_floor_above_is_found(self):
        self.assertEqual(['src/run/x.h: the room run may not include "view/a.h"'],
                         floors(run__x_h='#include "view/a.h"', view__a_h=""))

    def test_a_sub_folder_is_a_room_of_its_own(self):
        self.assertEqual(['src/view/tables/t.h: the room view/tables may not include "view/a.h"'],
                         floors(view__tables__t_h='#include "view/a.h"', view__a_h=""))

    def test_rooms_of_one_floor_may_not_include_each_other(self):
        self.assertEqual(
            ['src/platform/memory/a.h: the room platform/memory may not include "platform/windows/b.h"'],
            floors(platform__memory__a_h='#include "platform/windows/b.h"', platform__windows__b_h=""))

    def test_a_file_in_no_room_is_found(self):
        self.assertEqual(["src/lost/a.h: its folder is no room of floors.txt"], floors(lost__a_h=""))

    def test_a_quoted_include_of_no_file_is_found(self):
        self.assertEqual(['src/run/x.h: "run/gone.h" is no file below src/'],
                         floors(run__x_h='#include "run/gone.h"'))


class Uses(unittest.TestCase):
    def test_a_room_is_linked_with_rooms_below_it(self):
        self.assertEqual([], uses("view", "view/tables\n run", view__a_h='#include "view/tables/t.h"',
                                  view__b_h='#include "run/x.h"'))

    def test_a_room_of_the_same_floor_or_above_is_found(self):
        self.assertEqual(["src/run/CMakeLists.txt: the room run may not use platform",
                          "src/run/CMakeLists.txt: the room run may not use view"],
                         uses("run", "platform view", run__x_h='#include "platform/p.h"'))

    def test_a_room_of_which_nothing_is_included_is_found(self):
        self.assertEqual(["src/view/CMakeLists.txt: the room view includes nothing of view/tables"],
                         uses("view", "view/tables run", view__a_h='#include "run/x.h"',
                              view__other__a_h='#include "view/tables/t.h"'))

    def test_a_header_that_a_build_makes_is_of_its_room(self):
        with unittest.mock.patch.dict(check.MADE_HEADERS, {"made.h": "run"}):
            self.assertEqual([], uses("view", "run", view__a_h="#include <made.h>"))

    def test_what_is_linked_alone_is_not_included(self):
        with unittest.mock.patch.object(check, "LINKED_ALONE", {("view", "run")}):
            self.assertEqual([], uses("view", "run", view__a_h=""))
            self.assertEqual(["src/view: includes run, which LINKED_ALONE denies"],
                             uses("view", "run", view__a_h='#include "run/x.h"'))


class Circles(unittest.TestCase):
    def test_a_circle_is_told_once(self):
        sources = {"a.h": '#include "b.h"', "b.h": '#include "c.h"', "c.h": '#include "a.h"',
                   "d.h": '#include "a.h"'}
        self.assertEqual(["files include each other: a.h -> b.h -> c.h -> a.h"],
                         check.check_circles(sources))

    def test_two_roads_to_one_file_are_no_circle(self):
        sources = {"a.h": '#include "b.h"\n#include "c.h"', "b.h": '#include "c.h"', "c.h": ""}
        self.assertEqual([], check.check_circles(sources))

    def test_includes_from_src_are_followed(self):
        sources = {"src/run/a.h": '#include "run/b.h"', "src/run/b.h": '#include "run/a.h"'}
        self.assertEqual(["files include each other: src/run/a.h -> src/run/b.h -> src/run/a.h"],
                         check.check_circles(sources))

    def test_folders_that_include_each_other_are_found_outside_src_too(self):
        for folder in ("src", "tests", "tools", "simulator", "bench"):
            with self.subTest(folder):
                sources = {f"{folder}/all.h": f'#include "{folder}/part/a.h"', f"{folder}/parts.h": "",
                           f"{folder}/part/a.h": "", f"{folder}/part/b.cpp": f'#include "{folder}/parts.h"'}
                self.assertEqual([f"folders include each other: {folder} -> {folder}/part -> {folder}"],
                                 check.check_circles(sources))


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
        drawing = check.read_drawing("text\n```floors\nplatform/memory    outsiders\n  platform/windows\n"
                                     "view      rules\nview/tables     tables\nplatform  run    floor\n```\n")
        self.assertEqual([], check.compare_drawing(FLOORS, drawing))
        self.assertEqual(1, len(check.compare_drawing(FLOORS, drawing[1:])))
        self.assertEqual(1, len(check.compare_drawing(FLOORS, [])))


if __name__ == "__main__":
    unittest.main()
