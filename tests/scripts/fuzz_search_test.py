#!/usr/bin/env python3
"""Tests of tests/fuzz/run with played targets: how executions are dealt out, and what is left of a search that ends
early. The project's folder is the argument."""

import unittest

from commands_place import Place

SEARCH = """#!/bin/sh
tell() { printf 'stat::number_of_executed_units: %s\\nstat::average_exec_per_sec: %s\\n' "$1" RATE; }
trap 'tell 5; exit 72' TERM
for word in "$@"; do
  case $word in
    -runs=*) echo '#9 DONE cov: 7 ft: 8 corp: 2/3b'; LONG; tell "${word#-runs=}"; exit STATUS ;;
  esac
done
tell 10
"""
# When the script has begun all searches and waits for them.
END = 'sleep 1; kill -TERM "$PPID"; while :; do sleep 0.05; done'


class Search(Place):
    def setUp(self):
        super().setUp()
        self.play_installed()
        self.play("cmake", "exit 0")
        self.target("config_file", "fuzz", "corpus/config_file", 300)
        self.target("whole_run", "fuzz", "corpus/whole_run", 1)
        self.target("candump_log", "simulator", "candump_log_corpus", 9000)

    def target(self, name: str, folder: str, corpus: str, rate: int, long: str = ":", status: int = 0) -> None:
        (self.project / "tests" / folder / corpus).mkdir(parents=True, exist_ok=True)
        path = self.project / "build/native-sanitize/tests" / folder / f"{name}_fuzz"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(SEARCH.replace("RATE", str(rate)).replace("LONG", long).replace("STATUS", str(status)))
        path.chmod(0o755)

    def search(self, *words: str):
        return self.run_script("tests/fuzz/run", "--only", "config_file", "--only", "candump_log", *words)

    def test_what_ships_makes_nineteen_of_twenty_whatever_the_speeds(self):
        ended = self.search("--executions", "1000000")
        self.assertEqual((0, ""), (ended.status, ended.errors))
        for row in ("| `candump_log` | 50001 | 9000 | 7 | 8 | 2 | 0 | none |", "| `config_file` | 950001 | 300 | 7 |",
                    "| all of what ships | 950001 |", "| all | 1000002 |"):
            self.assertIn(f"\n{row}", ended.said)

    def test_a_slow_target_has_its_least_share(self):
        said = self.search("--only", "whole_run", "--executions", "10000000").said
        self.assertIn("\n| `whole_run` | 31562 |", said)
        self.target("config_file", "fuzz", "corpus/config_file", 9000)
        self.assertIn("\n| `whole_run` | 10001 |", self.search("--only", "whole_run", "--executions", "10000000").said)

    def test_executions_of_several_searches_add_up(self):
        self.search("--executions", "1000000")
        said = self.search("--executions", "3000000").said
        self.assertRegex(said, r"\n\nall 2 searches in build/fuzz/searches together:\n\n(\|.*\n)*\| all \| 4000004 \|")
        self.assertIn("\n| `config_file` | 3800002 |", said.split("together")[1])

    def test_a_search_that_is_ended_tells_what_it_did(self):
        self.target("config_file", "fuzz", "corpus/config_file", 300, END)
        ended = self.search("--executions", "1000000")
        self.assertEqual((143, ""), (ended.status, ended.errors))
        self.assertIn("\n| `config_file` | 15 | 300 | 7 | 8 | 2 | 0 | none |\n", ended.said)

    def test_a_broken_promise_is_told(self):
        self.target("config_file", "fuzz", "corpus/config_file", 300, status=77)
        ended = self.search("--executions", "1000000")
        self.assertEqual(1, ended.status)
        self.assertRegex(ended.said, r"\n-- config_file broke a promise\n(.*\n)*\| `config_file` .* \| \*\*see build/fuzz\*\* \|\n")


if __name__ == "__main__":
    unittest.main()
