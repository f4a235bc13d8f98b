#include "tools/log/runs/log_run.h"

#include <gtest/gtest.h>

#include "tests/tools/log/written_log.h"
#include "tools/log/runs/run_reader.h"

namespace tolvane::logtool {
namespace {

class LogRuns : public WrittenLog {
 protected:
  /// A file with records at these times.
  void WriteFile(const std::vector<double>& times) {
    for (const double time : times) db.csv_DataInput(time, 0x123, 1, kBytes);
    RollOverNow();
  }

  std::vector<LogRun> Runs(const std::vector<std::string>& paths, bool keep = false) {
    Complaints complaints(sink, keep);
    auto runs = FindRuns(paths, log_files, complaints);
    faults = complaints.Count();
    return runs;
  }

  std::vector<double> Times(const LogRun& run, bool keep) {
    Complaints complaints(sink, keep);
    RunReader reader(run, log_files, complaints, false);
    std::vector<double> times;
    for (LogFrame frame; reader.Next(frame);) times.push_back(frame.time);
    complaints.Conclude();
    faults = complaints.Count();
    return times;
  }

  std::string said;
  TextSink sink{said};
  std::uint64_t faults = 0;
};

TEST_F(LogRuns, BeginWithARecordOfTimeZero) {
  WriteFile({0, 0, 1});
  WriteFile({2, 3});
  WriteFile({});
  WriteFile({0, 5});
  TakeFiles();
  const auto runs = Runs({Path("001"), Path("002"), Path("003"), Path("004")});
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_EQ(runs[0].files.size(), 3U) << "an empty file is the end of a run";
  EXPECT_FALSE(runs[0].files[2].begins);
  EXPECT_TRUE(runs[0].IsWholeAtItsBegin());
  EXPECT_EQ(runs[1].files.front().path, Path("004"));
}

TEST_F(LogRuns, BeginWhereTheTimeGoesBackFromFileToFile) {
  WriteFile({0, 1});
  WriteFile({1, 5});
  WriteFile({4, 9});
  WriteFile({});
  WriteFile({8, 9});
  TakeFiles();
  const auto runs = Runs({Path("001"), Path("002"), Path("003"), Path("004"), Path("005")});
  ASSERT_EQ(runs.size(), 3U);
  EXPECT_EQ(runs[1].files.front().path, Path("003"));
  EXPECT_EQ(runs[2].files.front().path, Path("005"));
}

TEST_F(LogRuns, WhoseTimesAreAllZeroGoOnBehindAFullFile) {
  WriteFile(std::vector<double>(20'001, 0.0));
  WriteFile({0, 0});
  WriteFile({0, 0});
  TakeFiles();
  const auto runs = Runs({Path("001"), Path("002"), Path("003")});
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_EQ(runs[0].files.size(), 2U);
}

TEST_F(LogRuns, AnEndIsFoundBehindALongBlockOfZeros) {
  Begin29BitRun();
  for (int i = 0; i < 3; ++i) db.csv_DataInput29(i, 1, 0, kBytes, 1);
  RollOverNow();
  TakeFiles();
  std::string& text = log_files.texts[Path("001")];
  text += std::string(50'000, '0') + "        70 , * , 00000001 , 0\r\n" + std::string(9'000, '0');
  const auto runs = Runs({Path("001")});
  EXPECT_EQ(runs.at(0).files[0].ends, 70.0);
}

// The zeros of most of a channel, ahead of the only record.
TEST_F(LogRuns, AnEndIsFoundInALongLineThatIsAlone) {
  Begin29BitRun();
  RollOverNow();
  TakeFiles();
  std::string& text = log_files.texts[Path("001")];
  for (const std::size_t zeros : {100'000U, 900'000U}) {
    const std::string before = text;
    text += std::string(zeros, '0') + "        70 , * , 00000001 , 0\r\n";
    const auto runs = Runs({Path("001")});
    EXPECT_EQ(runs.at(0).files[0].begins, 70.0);
    EXPECT_EQ(runs.at(0).files[0].ends, 70.0) << zeros;
    text = before;
  }
}

TEST_F(LogRuns, AFileThatIsNamedTwiceIsToldAndTakenOnce) {
  WriteFile({0, 1});
  TakeFiles();
  EXPECT_EQ(Runs({Path("001"), Path("001")}, true).size(), 1U);
  EXPECT_EQ(said, "tolvane-log: " + Path("001") + ": this file is named twice\n");
  EXPECT_EQ(faults, 1U);
}

TEST_F(LogRuns, BeginWhereTheHeadSaysSomethingElse) {
  WriteFile({1, 2});
  db.str_bitrate = u"250k bps";
  db.csv_DB_Initialize(0, device);
  WriteFile({3, 4});
  device.t_LogComment = u"other";
  db.csv_DB_Initialize(0, device);
  WriteFile({5, 6});
  TakeFiles();
  const auto runs = Runs({Path("001"), Path("002"), Path("003")});
  ASSERT_EQ(runs.size(), 3U);
  EXPECT_FALSE(runs[0].IsWholeAtItsBegin());
}

TEST_F(LogRuns, BehindAFileWithoutARecordMayLackTheirBegin) {
  WriteFile({});
  WriteFile({5, 6});
  TakeFiles();
  const auto runs = Runs({Path("001"), Path("002")});
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_FALSE(runs[0].IsWholeAtItsBegin());
}

TEST_F(LogRuns, GoOnWhateverMomentTheirFilesWereWrittenAt) {
  WriteFile({0, 1});
  wall_clock.Set({2026, 11, 20, 5, 9, 50, 0});
  WriteFile({2, 3});
  TakeFiles();
  EXPECT_EQ(Runs({Path("001"), Path("002")}).size(), 1U);
}

TEST_F(LogRuns, AFrameIsReadFromEachFileInOrder) {
  WriteFile({0, 1});
  WriteFile({2, 3});
  WriteFile({});
  TakeFiles();
  const auto runs = Runs({Path("001"), Path("002"), Path("003")});
  EXPECT_EQ(Times(runs.at(0), false), (std::vector<double>{0, 1, 2, 3}));
  EXPECT_EQ(faults, 0U);
}

TEST_F(LogRuns, WhatIsMissingOrNoLogIsToldByItsName) {
  WriteFile({0, 1});
  TakeFiles();
  log_files.texts["other.csv"] = "time,id\n";
  EXPECT_TRUE(Runs({"gone.csv", Path("001"), "other.csv"}).empty()) << "the first one ends it";
  EXPECT_EQ(said, "tolvane-log: gone.csv: this file cannot be opened: it is not there\n");
  said.clear();
  EXPECT_EQ(Runs({"gone.csv", Path("001"), "other.csv"}, true).size(), 1U);
  EXPECT_EQ(faults, 2U);
  EXPECT_NE(said.find("tolvane-log: other.csv:1: this is no csv log of Tolvane"),
            std::string::npos);
}

TEST_F(LogRuns, AFaultEndsTheReadingUnlessWhatIsGoodIsKept) {
  WriteFile({0, 1});
  WriteFile({4, 5});
  TakeFiles();
  log_files.texts[Path("001")] += "rubbish\r\n         2 , 123 , 0\r\n";
  const auto runs = Runs({Path("001"), Path("002")});
  EXPECT_EQ(Times(runs.at(0), false), (std::vector<double>{0, 1}));
  EXPECT_EQ(said,
            "tolvane-log: " + Path("001") + ":11: this is no record: it begins with no time\n");
  EXPECT_EQ(Times(runs.at(0), true), (std::vector<double>{0, 1, 2, 4, 5}));
  EXPECT_EQ(faults, 1U);
}

TEST_F(LogRuns, TenFaultsAreToldAndTheRestCounted) {
  WriteFile({0});
  TakeFiles();
  for (int i = 0; i < 25; ++i) log_files.texts[Path("001")] += "rubbish\r\n";
  const auto runs = Runs({Path("001")});
  (void)Times(runs.at(0), true);
  EXPECT_EQ(faults, 25U);
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 11);
  EXPECT_TRUE(said.ends_with("tolvane-log: 15 more faults like these\n"));
}

TEST_F(LogRuns, AFileThatBreaksOffIsLeftForTheNextOne) {
  WriteFile({0, 1});
  WriteFile({2, 3});
  TakeFiles();
  log_files.unreadable = Path("001");
  const auto runs = Runs({Path("001"), Path("002")});
  EXPECT_EQ(Times(runs.at(0), true), (std::vector<double>{0, 1, 2, 3}));
  EXPECT_EQ(faults, 1U);
  EXPECT_EQ(Times(runs.at(0), false), (std::vector<double>{0, 1}));
}

TEST_F(LogRuns, AFileThatGoesAwayMeanwhileIsTold) {
  WriteFile({0, 1});
  WriteFile({2, 3});
  TakeFiles();
  const auto runs = Runs({Path("001"), Path("002")});
  log_files.texts.erase(Path("001"));
  EXPECT_EQ(Times(runs.at(0), true), (std::vector<double>{2, 3}));
  EXPECT_EQ(faults, 1U);
}

}  // namespace
}  // namespace tolvane::logtool
