#include "tools/log/command/command.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/tools/log/written_log.h"
#include "tools/log/command/options.h"

namespace tolvane::logtool {
namespace {

constexpr std::int64_t kUnix = 1'795'133'107;
constexpr std::size_t kHeadLines = 8;
constexpr const char* kHourAhead = "KL26112008-001.csv";

class LogCommand : public WrittenLog {
 protected:
  int Run(const std::vector<std::string>& words) {
    output.clear();
    messages.clear();
    return RunCommand(words, {.files = log_files,
                              .output = output_sink,
                              .messages = message_sink,
                              .code_page = code_page,
                              .unix_seconds = [](const platform::LocalTime&) {
                                return std::optional<std::int64_t>(kUnix);
                              }});
  }

  /// Two files of two frames each, and a third one without any.
  void WriteRun() {
    db.csv_DataInput(0.0, 0x100, 1, kBytes);
    db.csv_DataInput(1.5, 0x200, 0, kBytes);
    RollOverNow();
    db.csv_DataInput(2.5, 0x100, 1, kBytes);
    db.csv_DataInput(3.0, 0x200, 0, kBytes);
    RollOverNow();
    Flush(1);
    TakeFiles();
  }

  /// The file `path` with its first records alone, by another name.
  void WriteAgain(const std::string& path, const std::string& name, std::size_t records) {
    const std::string& text = log_files.texts[path];
    std::size_t end = 0;
    for (std::size_t line = 0; line < kHeadLines + records; ++line) end = text.find('\n', end) + 1;
    log_files.texts[name] = text.substr(0, end);
  }

  std::vector<std::string> Files(std::vector<std::string> words) const {
    for (const auto& [path, text] : log_files.texts) words.push_back(path);
    return words;
  }

  std::string output;
  std::string messages;
  TextSink output_sink{output};
  TextSink message_sink{messages};
};

/// Of a run whose only file with a record is not full.
std::string LateDates(const std::string& path) {
  return "tolvane-log: " + path +
         " is not full, so its date is that of the disconnect: absolute times are late by the "
         "silence ahead of that\n";
}

/// Of a run with others behind such a one.
std::string DatesThatMayBeLate(const std::string& path) {
  return "tolvane-log: " + path +
         " is not full, though others go on, so its date may be later than its last record: "
         "absolute times may be late by that\n";
}

constexpr const char* kCandump =
    "(1795133106.998000) can0 100#00\n"
    "(1795133106.999500) can0 200#\n"
    "(1795133107.000500) can0 100#00\n"
    "(1795133107.001000) can0 200#\n";

TEST_F(LogCommand, WordsThatAreNotUnderstoodAreToldAndStatusTwo) {
  const std::pair<std::vector<std::string>, const char*> rows[] = {
      {{}, "info or convert?"},
      {{"play"}, "there is info and convert, not 'play'"},
      {{"info"}, "no files are named"},
      {{"info", "--gap"}, "--gap is a number of cycles from 1 to 1000000, not ''"},
      {{"info", "--gap", "0.5", "a.csv"},
       "--gap is a number of cycles from 1 to 1000000, not '0.5'"},
      {{"info", "--gap", "5x", "a.csv"}, "--gap is a number of cycles from 1 to 1000000, not '5x'"},
      {{"info", "--gap", "nan", "a.csv"},
       "--gap is a number of cycles from 1 to 1000000, not 'nan'"},
      {{"info", "--to", "asc", "a.csv"}, "no such option of info: --to"},
      {{"convert", "--json", "a.csv"}, "no such option of convert: --json"},
      {{"convert", "a.csv"}, "--to is missing: candump, asc or csv"},
      {{"convert", "--to", "blf", "a.csv"}, "--to is candump, asc or csv, not 'blf'"},
      {{"convert", "--to", "csv", "--to", "xml", "a.csv"},
       "--to is candump, asc or csv, not 'xml'"},
      {{"convert", "--to", "asc", "--out"}, "--out needs the name of a file"},
      {{"info", "--gap=0.5", "a.csv"}, "--gap is a number of cycles from 1 to 1000000, not '0.5'"},
      {{"info", "--json=1", "a.csv"}, "no such option of info: --json=1"},
      {{"convert", "--to=asc", "--out=", "a.csv"}, "--out needs the name of a file"},
      {{"info", ""}, "an empty word names no file"},
      {{"convert", "--to", "asc", "a.csv", "--", ""}, "an empty word names no file"},
  };
  for (const auto& [words, refusal] : rows) {
    EXPECT_EQ(Run(words), 2);
    EXPECT_EQ(messages, "tolvane-log: " + std::string(refusal) + " (tolvane-log --help)\n");
    EXPECT_EQ(output, "");
  }
}

TEST_F(LogCommand, BehindTwoHyphensAllWordsAreFiles) {
  EXPECT_EQ(OptionsOf({"info", "a.csv", "--", "--keep", "--gap"}).options->files,
            (std::vector<std::string>{"a.csv", "--keep", "--gap"}));
  for (const std::string word : {"-h", "--help", "--version"}) {
    const Options options = OptionsOf({"info", "--", word}).options.value();
    EXPECT_EQ(options.verb, Verb::kInfo) << word;
    EXPECT_EQ(options.files, std::vector<std::string>{word});
  }
}

TEST_F(LogCommand, AValueMayStandBehindAnEqualsSign) {
  const Options options =
      OptionsOf({"convert", "--to=asc", "--out=a=b.asc", "a=1.csv"}).options.value();
  EXPECT_EQ(options.format, Format::kAsc);
  EXPECT_EQ(options.out, "a=b.asc");
  EXPECT_EQ(options.files, std::vector<std::string>{"a=1.csv"});
  EXPECT_EQ(OptionsOf({"info", "--gap=3", "a.csv"}).options->info.multiple, 3.0);
}

TEST_F(LogCommand, HelpIsGivenWhereverItIsAskedFor) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{"--help"},
                                                {"-h"},
                                                {"info", "--nonsense", "--help"},
                                                {"convert", "-h"}}) {
    EXPECT_EQ(Run(words), 0);
    EXPECT_TRUE(output.starts_with("usage: tolvane-log info ")) << output;
    EXPECT_EQ(messages, "");
  }
  for (const char* const told :
       {"--gap", "--json", "--to", "--out", "--mend-clock", "--keep", "can_logconvert", ".blf",
        ".mf4", ".trc", ".db", "longer than a minute", "first file with a record"}) {
    EXPECT_NE(output.find(told), std::string::npos) << told;
  }
}

TEST_F(LogCommand, NoLineOfTheHelpIsLong) {
  std::istringstream lines{std::string(HelpText())};
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 104U) << line;
}

TEST_F(LogCommand, TheVersionIsThatOfTheProgram) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"--version"}, {"info", "--version"}, {"convert", "--version"}}) {
    EXPECT_EQ(Run(words), 0);
    EXPECT_EQ("Tolvane Ver" + output.substr(output.find(' ') + 1), "Tolvane Ver1.23\n");
  }
}

TEST_F(LogCommand, ConvertJoinsTheFilesOfARunInTheOrderOfTheirNames) {
  WriteRun();
  EXPECT_EQ(Run({"convert", Path("003"), Path("002"), "--to", "candump", Path("001")}), 0);
  EXPECT_EQ(output, kCandump);
  EXPECT_EQ(messages, "tolvane-log: 4 frames of 3 files, from " + Path("001") + " to " +
                          Path("003") + "\n" + DatesThatMayBeLate(Path("001")) +
                          "tolvane-log: " + Path("001") + " has 2 records and is not full, but " +
                          Path("002") + " goes on\n");
}

TEST_F(LogCommand, WhereFilesAreMissingIsTold) {
  WriteRun();
  log_files.texts["KL26112009-005.csv"] = log_files.texts[Path("002")];
  log_files.texts["KL26112012-002.csv"] = log_files.texts[Path("003")];
  EXPECT_EQ(
      Run({"convert", "--to", "candump", Path("001"), "KL26112009-005.csv", "KL26112012-002.csv"}),
      0);
  EXPECT_NE(messages.find("tolvane-log: between KL26112009-001.csv and KL26112009-005.csv 3 files "
                          "are missing, by the names\n"),
            std::string::npos)
      << messages;
  EXPECT_NE(messages.find("tolvane-log: between KL26112009-005.csv and KL26112012-002.csv 1 file "
                          "is missing, by the names\n"),
            std::string::npos)
      << messages;
}

TEST_F(LogCommand, ARunWithoutItsBeginIsToldByConvertToo) {
  WriteRun();
  EXPECT_EQ(Run({"convert", "--to", "candump", Path("002"), Path("003")}), 0);
  EXPECT_EQ(messages, "tolvane-log: 2 frames of 2 files, from " + Path("002") + " to " +
                          Path("003") +
                          "\ntolvane-log: they begin at 2.5 ms: those ahead of them are missing\n" +
                          LateDates(Path("002")));
}

TEST_F(LogCommand, TheBeginThatIsMissingIsThatOfTheFirstFileWithARecord) {
  RollOverNow();
  db.csv_DataInput(5.0, 0x100, 1, kBytes);
  RollOverNow();
  TakeFiles();
  EXPECT_EQ(Run({"convert", "--to", "candump", Path("001"), Path("002")}), 0);
  EXPECT_NE(messages.find("they begin at 5 ms: those ahead of them are missing"), std::string::npos)
      << messages;
}

TEST_F(LogCommand, ManyPlacesWhereSomethingIsMissingAreCounted) {
  for (int i = 0; i < 30; ++i) {
    db.csv_DataInput(i, 0x100, 1, kBytes);
    RollOverNow();
  }
  TakeFiles();
  EXPECT_EQ(Run(Files({"convert", "--to", "candump"})), 0);
  EXPECT_TRUE(
      messages.ends_with(Path("011") + " goes on\ntolvane-log: 19 more places like these\n"))
      << messages;
}

TEST_F(LogCommand, FullFilesThatFollowEachOtherAreNothingToTell) {
  for (int i = 0; i < 50'000; ++i) {
    db.csv_DataInput(i, 0x100, 1, kBytes);
    RollOver();
  }
  Flush(1);
  TakeFiles();
  EXPECT_EQ(Run(Files({"convert", "--to", "candump"})), 0);
  EXPECT_EQ(messages, "tolvane-log: 50000 frames of 3 files, from " + Path("001") + " to " +
                          Path("003") + "\n");
}

TEST_F(LogCommand, AFullFileWithABadLineIsFull) {
  for (int i = 0; i < 30'000; ++i) {
    db.csv_DataInput(0.0, 0x100, 1, kBytes);
    RollOver();
  }
  Flush(2);
  TakeFiles();
  std::string& first = log_files.texts[Path("001")];
  first.replace(first.rfind("100 ,"), 3, "x00");
  EXPECT_EQ(Run(Files({"convert", "--keep", "--to", "candump"})), 1);
  EXPECT_TRUE(messages.ends_with("tolvane-log: 29999 frames of 2 files, from " + Path("001") +
                                 " to " + Path("002") + "\n"))
      << messages;
}

TEST_F(LogCommand, ARunWhoseLastFileIsFullLacksItsEnd) {
  for (int i = 0; i < 40'002; ++i) {
    db.csv_DataInput(i, 0x100, 1, kBytes);
    RollOver();
  }
  Flush(1);
  TakeFiles();
  const std::string told =
      Path("002") +
      " is full, but no file goes on: the end of the run is missing, or was not written\n";
  EXPECT_EQ(Run(Files({"convert", "--to", "candump"})), 0);
  EXPECT_EQ(messages.find("no file goes on"), std::string::npos) << "the last one has no record";
  const std::vector<std::string> cut_off = {Path("001"), Path("002")};
  EXPECT_EQ(Run({"convert", "--to", "candump", cut_off[0], cut_off[1]}), 0);
  EXPECT_NE(messages.find("\ntolvane-log: " + told), std::string::npos) << messages;
  EXPECT_EQ(Run({"info", cut_off[0], cut_off[1]}), 0);
  EXPECT_NE(output.find("\n                " + told), std::string::npos) << output;
  // Another run is no end.
  WriteAgain(Path("001"), "KL26112009-004.csv", 1);
  EXPECT_EQ(Run({"info", cut_off[0], cut_off[1], "KL26112009-004.csv"}), 0);
  EXPECT_NE(output.find("\n                " + told), std::string::npos) << output;
  EXPECT_NE(output.find("\nrun 2\n  files         1: KL26112009-004.csv\n                between " +
                        Path("002") + " and KL26112009-004.csv 1 file is missing, by the names\n"),
            std::string::npos)
      << output;
}

TEST_F(LogCommand, TheEndThatIsMissingIsToldBehindManyOtherPlaces) {
  for (int i = 0; i < 20'012; ++i) {
    db.csv_DataInput(i, 0x100, 1, kBytes);
    if (i < 11) RollOverNow();
    if (i == 20'011) RollOver();
  }
  TakeFiles();
  EXPECT_EQ(Run(Files({"convert", "--to", "candump"})), 0);
  EXPECT_TRUE(messages.ends_with(
      "1 more place like these\ntolvane-log: " + Path("012") +
      " is full, but no file goes on: the end of the run is missing, or was not written\n"))
      << messages;
}

TEST_F(LogCommand, AFileThatBeginsBeforeTheEndOfTheOneAheadIsOfAnotherRun) {
  WriteRun();
  log_files.texts["a"] = log_files.texts[Path("002")];
  log_files.texts["b"] = log_files.texts[Path("002")];
  EXPECT_EQ(Run({"convert", "--to", "candump", "a", "b"}), 1);
  EXPECT_EQ(messages,
            "tolvane-log: these files are of 2 runs; name those of one. They begin with: a b\n");
}

TEST_F(LogCommand, AWorkbookIsToldToBeOne) {
  for (const char* const path : {"KL26112009-001.xls", "KL26112009-001.xlsx", "W.XLSX", "W.Xls"}) {
    log_files.texts[path] = "PK\x03\x04";
    EXPECT_EQ(Run({"info", path}), 1);
    EXPECT_EQ(messages, "tolvane-log: " + std::string(path) +
                            ": this is a workbook, and only csv logs are read; have it saved as "
                            "one\n");
  }
}

TEST_F(LogCommand, TheFirstFilesMomentIsThatOfItsLastRecord) {
  WriteRun();
  EXPECT_EQ(Run({"convert", "--to", "csv", Path("001"), Path("002")}), 0);
  EXPECT_EQ(output,
            "date_time,ms,id,extended,length,d1,d2,d3,d4,d5,d6,d7,d8\n"
            "2026-11-20 09:05:06.998000,0,0x100,0,1,00,,,,,,,\n"
            "2026-11-20 09:05:06.999500,1.5,0x200,0,0,,,,,,,,\n"
            "2026-11-20 09:05:07.000500,2.5,0x100,0,1,00,,,,,,,\n"
            "2026-11-20 09:05:07.001000,3,0x200,0,0,,,,,,,,\n");
}

TEST_F(LogCommand, AFileOfTheRunAheadGivesNoMoment) {
  RollOverNow();
  wall_clock.Set({2026, 11, 20, 5, 9, 30, 0});
  db.csv_DataInput(5.0, 0x100, 1, kBytes);
  RollOverNow();
  TakeFiles();
  EXPECT_EQ(Run({"convert", "--to", "csv", Path("001"), Path("002")}), 0);
  EXPECT_NE(output.find("2026-11-20 09:30:00.000000,5,"), std::string::npos) << output;
  EXPECT_NE(messages.find(LateDates(Path("002"))), std::string::npos) << messages;
}

TEST_F(LogCommand, ARunWithoutAbsoluteTimesOrWithoutFramesHasNoneThatAreLate) {
  WriteRun();
  std::string& text = log_files.texts[Path("001")];
  text.replace(text.find("2026/11/20"), 10, "11/20/2026");
  EXPECT_EQ(Run({"convert", "--to", "candump", Path("001")}), 0);
  EXPECT_EQ(messages.find("is not full"), std::string::npos) << messages;
  EXPECT_EQ(Run({"convert", "--to", "candump", Path("003")}), 0);
  EXPECT_EQ(messages.find("is not full"), std::string::npos) << messages;
}

TEST_F(LogCommand, AHeadWithAnotherDateOrADayThatNoMonthHasGivesNoAbsoluteTime) {
  for (const std::string day : {"11/20/2026", "2026/02/31"}) {
    WriteRun();
    std::string& text = log_files.texts[Path("001")];
    text.replace(text.find("2026/11/20"), 10, day);
    EXPECT_EQ(Run({"convert", "--to", "candump", Path("001")}), 0);
    EXPECT_EQ(output, "(0.000000) can0 100#00\n(0.001500) can0 200#\n");
    EXPECT_NE(messages.find("no absolute time, as the head's date is no day of a calendar with the "
                            "year in front: " +
                            day + " 9:05:07\n"),
              std::string::npos)
        << messages;
  }
}

TEST_F(LogCommand, ConvertWritesAFileButNeverOverAnother) {
  WriteRun();
  EXPECT_EQ(Run(Files({"convert", "--to", "candump", "--out", "run.log"})), 0);
  EXPECT_EQ(output, "");
  EXPECT_EQ(log_files.texts["run.log"], kCandump);
  log_files.texts.erase("run.log");
  for (const std::string& there : {Path("001"), Path("002")}) {
    const std::string before = log_files.texts[there];
    EXPECT_EQ(Run(Files({"convert", "--to", "candump", "--out", there})), 1);
    EXPECT_EQ(messages, "tolvane-log: " + there + ": this file is there already\n");
    EXPECT_EQ(log_files.texts[there], before);
  }
}

TEST_F(LogCommand, ConvertTakesOneRun) {
  WriteRun();
  log_files.texts["KL26112010-001.csv"] = log_files.texts[Path("001")];
  EXPECT_EQ(Run(Files({"convert", "--to", "candump"})), 1);
  EXPECT_EQ(output, "");
  EXPECT_EQ(messages,
            "tolvane-log: these files are of 2 runs; name those of one. They begin with: " +
                Path("001") + " KL26112010-001.csv\n");
}

TEST_F(LogCommand, ABadLineEndsItWithItsPlaceAndNothingIsLeft) {
  WriteRun();
  log_files.texts[Path("001")] += "rubbish\r\n";
  EXPECT_EQ(Run({"convert", "--to", "candump", "--out", "run.log", Path("001"), Path("002")}), 1);
  EXPECT_EQ(messages,
            "tolvane-log: " + Path("001") + ":11: this is no record: it begins with no time\n");
  EXPECT_FALSE(log_files.texts.contains("run.log"));
  log_files.opened = 0;
  EXPECT_EQ(Run({"info", Path("001"), Path("002")}), 1);
  EXPECT_EQ(output, "");
  EXPECT_EQ(log_files.opened, 3U) << "both to find the run, and the one that the reading ends in";
}

TEST_F(LogCommand, WhatCouldBeReadIsKeptIfAskedAndTheStatusIsStillOne) {
  WriteRun();
  log_files.texts[Path("001")] += "rubbish\r\n";
  EXPECT_EQ(Run({"convert", "--keep", "--to", "candump", "--out", "run.log", Path("001"),
                 "gone.csv", Path("002")}),
            1);
  EXPECT_EQ(log_files.texts["run.log"], kCandump);
  EXPECT_NE(messages.find("gone.csv: this file cannot be opened"), std::string::npos);
  EXPECT_EQ(Run({"info", "--keep", Path("001"), Path("002")}), 1);
  EXPECT_NE(output.find("frames        4\n"), std::string::npos);
}

TEST_F(LogCommand, FilesThatAreAllBadGiveNothing) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"convert", "--to", "asc", "gone.csv"},
        {"convert", "--keep", "--to", "asc", "--out", "run.asc", "gone.csv"},
        {"info", "gone.csv"}}) {
    EXPECT_EQ(Run(words), 1);
    EXPECT_EQ(output, "");
    EXPECT_EQ(messages, "tolvane-log: gone.csv: this file cannot be opened: it is not there\n");
  }
  EXPECT_TRUE(log_files.texts.empty());
}

TEST_F(LogCommand, AnOutputThatTakesNothingIsAFailure) {
  WriteRun();
  output_sink.fails = true;
  EXPECT_EQ(Run(Files({"info"})), 1);
  EXPECT_EQ(messages, "tolvane-log: the output cannot be written\n");
  EXPECT_EQ(Run(Files({"convert", "--to", "asc"})), 1);
  EXPECT_EQ(messages, "tolvane-log: the output cannot be written\n");
  EXPECT_EQ(Run({"--help"}), 1);
}

TEST_F(LogCommand, WhatWasMendedIsTold) {
  Begin29BitRun();
  db.csv_DataInput29(0.0, 0x1FFFFFFF, 0, kBytes, 1);
  RollOverNow();
  db.csv_DataInput29(1.0, 1, 15, kBytes, 1);
  db.csv_DataInput29(-2.0, 0x100, 0, kBytes, 0);
  RollOverNow();
  db.csv_DataInput29(3.0, 0x10, 0, kBytes, 1);
  Flush(1);
  TakeFiles();
  EXPECT_EQ(Run(Files({"convert", "--to", "candump", "--mend-clock"})), 0);
  EXPECT_EQ(output,
            "(1795133107.000000) can0 1FFFFFFF#\n"
            "(1795133107.001000) can0 00000001#001AFF0344556677\n"
            "(1795133107.000000) can0 100#\n"
            "(1795133107.003000) can0 00000010#\n");
  EXPECT_TRUE(
      messages.ends_with("tolvane-log: with a time before that of the frame ahead: 1 frame\n"
                         "tolvane-log: mended: 2 identifiers without zeros\n"
                         "tolvane-log: mended: 12 stray zeros in 1 block left out\n"
                         "tolvane-log: no clock jump to mend\n"
                         "tolvane-log: with a length above 8, and eight bytes: 1 frame\n"
                         "tolvane-log: with a negative time, written as 0: 1 frame\n"))
      << messages;
}

TEST_F(LogCommand, TheClockJumpIsMendedWhenAskedFor) {
  // A run that begins at the reading 20000 of a clock that starts over behind 60000.
  for (int i = 0; i <= 4000; ++i) db.csv_DataInput(i * 10, 0x100, 0, kBytes);
  for (int i = 1; i <= 10; ++i) db.csv_DataInput(60'000 + i * 10, 0x100, 0, kBytes);
  Flush(1);
  TakeFiles();
  EXPECT_EQ(Run(Files({"convert", "--to", "csv"})), 0);
  EXPECT_NE(output.find(",60010,"), std::string::npos);
  EXPECT_NE(
      messages.find("not mended, see --mend-clock: the clock jump of 20005 ms behind 40000 "
                    "ms, right to 5 ms if the bus was not silent there (a silence that ends just "
                    "there looks the same)\n"
                    "tolvane-log: absolute times ahead of the jump are too early by its "
                    "length\n"),
      std::string::npos)
      << messages;
  EXPECT_EQ(Run(Files({"convert", "--to", "csv", "--mend-clock"})), 0);
  EXPECT_EQ(output.find(",60010,"), std::string::npos);
  EXPECT_NE(output.find(",40005,"), std::string::npos);
  EXPECT_NE(messages.find("mended: the clock jump of 20005 ms"), std::string::npos);
  EXPECT_EQ(messages.find("of the jump"), std::string::npos) << messages;
  EXPECT_NE(output.find("\n2026-11-20 09:04:26.905000,0,"), std::string::npos)
      << "the last record is as old as the head in either case";
  EXPECT_EQ(Run(Files({"info", "--mend-clock"})), 0);
  EXPECT_NE(
      output.find("clock jump    20005 ms behind 40000 ms, right to 5 ms if the bus was not silent "
                  "there\n"),
      std::string::npos);
  EXPECT_NE(output.find("gap or span, and is taken out of the times\n"), std::string::npos);
  EXPECT_NE(output.find("silent longer than 5 cycles: none"), std::string::npos);
}

TEST_F(LogCommand, AClockJumpBehindTheFirstFileShiftsTheDatesBehindIt) {
  for (int i = 0; i <= 4000; ++i) db.csv_DataInput(i * 10, 0x100, 0, kBytes);
  RollOverNow();
  for (int i = 1; i <= 10; ++i) db.csv_DataInput(60'000 + i * 10, 0x100, 0, kBytes);
  Flush(2);
  TakeFiles();
  EXPECT_EQ(Run(Files({"convert", "--to", "csv"})), 0);
  EXPECT_NE(messages.find("absolute times behind the jump are too late by its length\n"),
            std::string::npos)
      << messages;
}

TEST_F(LogCommand, AClockJumpBehindAFileOfTheRunAheadIsInTheOneWithTheDate) {
  for (int i = 1; i <= 4000; ++i) db.csv_DataInput(i * 10, 0x100, 0, kBytes);
  for (int i = 1; i <= 10; ++i) db.csv_DataInput(60'000 + i * 10, 0x100, 0, kBytes);
  Flush(1);
  TakeFiles();
  WriteAgain(Path("001"), kHourAhead, 0);
  EXPECT_EQ(Run(Files({"convert", "--to", "csv"})), 0);
  EXPECT_NE(messages.find("absolute times ahead of the jump are too early by its length\n"),
            std::string::npos)
      << messages;
}

// As StampTurn.IsTakenOutWhereverTheRunBegan has it of the writer.
class LogOfABoard : public LogCommand {
 protected:
  /// A run from the reading 2147000 on, with a frame each 10 ms: the line of its times.
  void WriteBoard(std::int32_t records_of_file, int first = 0) {
    db.hardware_information = u"Interface PCI-485120 RevID:1 ch:1";
    db.csv_DB_Initialize(0, device);
    for (int i = first; i < 200; ++i) {
      double time = i * 10.0;
      if (i > 48) time -= 3'865'476.0;
      if (i > 49) time += 2'147'000.0;
      db.csv_DataInput(time, 0x100, 0, kBytes);
      if (db.Excel_DB_ArayyCounter == records_of_file) RollOverNow();
    }
    Flush(1);
    TakeFiles();
  }
};

TEST_F(LogOfABoard, WhoseStampsTurnNegativeIsMendedWhenAskedFor) {
  WriteBoard(1'000);
  const std::string step =
      "behind 480 ms the time steps back by 3865476 ms, as the board's stamps turn negative there; "
      "at the frame behind it jumps ahead by 2146998 ms, right to 5 ms; ";
  EXPECT_EQ(Run(Files({"convert", "--to", "csv"})), 0);
  EXPECT_NE(messages.find("tolvane-log: " + step + "see --mend-clock\n"), std::string::npos)
      << messages;
  EXPECT_NE(messages.find("absolute times ahead of the step back are too late by its length\n"),
            std::string::npos)
      << messages;
  EXPECT_NE(output.find(",-3864986,0x100,"), std::string::npos);
  EXPECT_EQ(Run(Files({"convert", "--to", "csv", "--mend-clock"})), 0);
  EXPECT_NE(messages.find("tolvane-log: " + step + "this is taken out of the times\n"),
            std::string::npos)
      << messages;
  EXPECT_EQ(messages.find("absolute times ahead"), std::string::npos) << messages;
  EXPECT_EQ(messages.find("with a time before"), std::string::npos) << messages;
  EXPECT_EQ(messages.find("no clock jump to mend"), std::string::npos) << messages;
  EXPECT_NE(output.find(",480,0x100,0,0,,,,,,,,\n"), std::string::npos);
  EXPECT_NE(output.find(",490,0x100,0,0,,,,,,,,\n"), std::string::npos) << "the step is exact";
  EXPECT_NE(output.find(",502,0x100,0,0,,,,,,,,\n"), std::string::npos);
  EXPECT_NE(output.find("\n2026-11-20 09:05:05.008000,0,"), std::string::npos)
      << "the last record is as old as the head";
}

TEST_F(LogOfABoard, HasNoGapWhereItsStampsTurnNegative) {
  WriteBoard(1'000);
  EXPECT_EQ(Run(Files({"info"})), 0);
  EXPECT_NE(output.find("\n                behind 480 ms the time steps back by 3865476 ms"),
            std::string::npos)
      << output;
  EXPECT_EQ(output.find("steps back    "), std::string::npos) << output;
  EXPECT_NE(output.find("  span          1.992 s\n"), std::string::npos) << output;
  EXPECT_NE(output.find("silent longer than 5 cycles: none"), std::string::npos) << output;
}

TEST_F(LogOfABoard, WhoseStampsTurnBehindTheFirstFileHasEarlyDatesBehindThat) {
  WriteBoard(20);
  EXPECT_EQ(Run(Files({"convert", "--to", "csv"})), 0);
  EXPECT_NE(messages.find("absolute times behind the step back are too early by its length\n"),
            std::string::npos)
      << messages;
}

TEST_F(LogOfABoard, WhoseStampsTurnBehindAFileOfTheRunAheadHasLateDatesAheadOfThat) {
  WriteBoard(1'000, 1);
  WriteAgain(Path("001"), kHourAhead, 0);
  EXPECT_EQ(Run(Files({"convert", "--to", "csv"})), 0);
  EXPECT_NE(messages.find("absolute times ahead of the step back are too late by its length\n"),
            std::string::npos)
      << messages;
}

}  // namespace
}  // namespace tolvane::logtool
