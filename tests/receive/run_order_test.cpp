#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/receive/run_bench.h"
#include "tests/receive/run_sequence.h"

namespace tolvane {
namespace {

TEST(RunOrder, EachOfTheTwelveWaysHasItsSequence) {
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      SCOPED_TRACE(WayName(binding, worker));
      RunBench bench;
      bench.LogToCsv();
      EXPECT_EQ(bench.Run(binding, worker), 0);
      EXPECT_EQ(bench.journal.Lines(), SequenceOf(binding, worker, BenchHandle(binding)));
      EXPECT_EQ(bench.RxFlag, 0);
    }
  }
}

TEST(RunOrder, SilentKvaserRunSetsTheDriverBeforeTheTimerAndGoesOnBusAfterIt) {
  RunBench bench;
  bench.device.t_silent_mode = 1;
  bench.Run(AdapterKind::kKvaser, WorkerKind::FormBG);
  const Lines lines = bench.journal.Take();
  EXPECT_EQ(Lines(lines.begin() + 3, lines.begin() + 7),
            (Lines{"canSetBusParams(5, -2, 5, 2, 1, 1, 0)", "canSetBusOutputControl(5, 1)",
                   "TimerBackView.Enabled = true", "canBusOn(5)"}));
}

TEST(RunOrder, WithoutLogNothingIsFlushed) {
  RunBench bench;
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
  const Lines lines = bench.journal.Take();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "flush"), 0);
  EXPECT_TRUE(bench.files.Files(u"C:\\Tolvane").empty());
}

TEST(RunOrder, TimerThatIsOffAtTheEndIsNotSwitchedOffAgain) {
  RunBench bench;
  bench.events = {[&] {
    bench.timers[0].Enabled(false);
    bench.RxFlag = 0;
  }};
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
  const Lines lines = bench.journal.Take();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "TimerBackView.Enabled = false"), 1);
}

TEST(RunOrder, CanusbTimerIsStillOnInTheFlushAfterTheClose) {
  RunBench bench;
  bench.LogToCsv();
  bench.files.AddFile(u"C:\\Tolvane\\KL26112009-001.csv", "taken");
  bool timer_in_flush = false;
  Lines before_flush;
  bench.events = {[&] { bench.RxFlag = 0; },
                  [&] {  // the search for a free name yields at the taken one
                    timer_in_flush = bench.timers[0].Enabled();
                    before_flush = bench.journal.Lines();
                  }};
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
  EXPECT_TRUE(timer_in_flush);
  ASSERT_GE(before_flush.size(), 2u);
  EXPECT_EQ(before_flush[before_flush.size() - 2], "canusb_Close(1)");
}

TEST(RunOrder, InterfaceRunGivesTheStatusOfItsClose) {
  RunBench bench;
  bench.IFCan.close_status = 55;
  EXPECT_EQ(bench.Run(AdapterKind::kInterface, WorkerKind::FormBG_29), 55);
}

TEST(RunStart, RateTextOfEachBitRate) {
  const char16_t* const kTexts[] = {u"1M bps",  u"800k bps", u"500k bps", u"250k bps", u"100k bps",
                                    u"50k bps", u"20k bps",  u"10k bps",  u"125k bps"};
  for (std::int32_t t_bitRate = 0; t_bitRate < 9; ++t_bitRate) {
    RunBench bench;
    bench.device.t_bitRate = t_bitRate;
    bench.LogToCsv();
    bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
    EXPECT_EQ(bench.window.TB_Protocol.Text(), kTexts[t_bitRate]);
    std::string log_line;
    bench.code_page.Encode(u",,,bit rate：," + String(kTexts[t_bitRate]) + u"\r\n", log_line);
    EXPECT_NE(bench.Log().find(log_line), std::string::npos) << t_bitRate;
  }
}

TEST(RunStart, BitRateOutsideTheTableSetsNeitherBoxNorLog) {
  for (const std::int32_t t_bitRate : {-1, 9, INT32_MAX, INT32_MIN}) {
    RunBench bench;
    bench.device.t_bitRate = t_bitRate;
    bench.LogToCsv();
    bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
    EXPECT_EQ(bench.journal.Lines().front(), "canusb_Open(\"LWR12345\", \"\", 0, -1, 1)");
    EXPECT_EQ(bench.window.TB_Protocol.Text(), u"---");
    std::string log_line;
    bench.code_page.Encode(u",,,bit rate：,\r\n", log_line);
    EXPECT_NE(bench.Log().find(log_line), std::string::npos) << t_bitRate;
  }
}

TEST(RunStart, StatusSaysWhatIsLogged) {
  const struct {
    std::int32_t enable, format;
    StringView status;
  } kCases[] = {{1, 1, u"通信中　ログ出力(Excel)"},
                {1, 2, u"通信中　ログ出力(csv)"},
                {1, 3, u"通信中"},
                {1, 0, u"通信中"},
                {0, 1, u"通信中"},
                {0, 2, u"通信中"},
                {2, 2, u"通信中"}};
  for (const auto& row : kCases) {
    RunBench bench;
    bench.device.t_LogSave_Enable = row.enable;
    bench.device.t_LogSaveFormat = row.format;
    String status;
    bench.events = {[&] {
      status = bench.window.TB_Status.Text();
      bench.RxFlag = 0;
    }};
    bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
    EXPECT_EQ(status, row.status) << row.enable << ' ' << row.format;
  }
}

TEST(RunStart, HardwareTextIsDeviceAndVersionAndOnABoardTheVersionAlone) {
  const struct {
    AdapterKind binding;
    StringView line;
  } kCases[] = {{AdapterKind::kCanusb, u"\r\nCANUSB LWR12345 、V1011\r\n"},
                {AdapterKind::kInterface, u"\r\nV1011\r\n"},
                {AdapterKind::kKvaser, u"\r\nCANUSB LWR12345 、V1011\r\n"}};
  for (const auto& row : kCases) {
    for (const WorkerKind worker : kAllWorkers) {
      RunBench bench;
      bench.LogToCsv();
      bench.Run(row.binding, worker);
      std::string line;
      bench.code_page.Encode(row.line, line);
      EXPECT_NE(bench.Log().find(line), std::string::npos) << WayName(row.binding, worker);
    }
  }
}

TEST(RunStart, EachRunBeginsWithClearedTablesAndTimes) {
  for (const AdapterKind binding : kAllBindings) {
    RunBench bench;
    bench.Run(binding, WorkerKind::FormBG, {{.id = 0x10, .time = 500}, {.id = 0x10, .time = 700}});
    EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_ReceivedTime(0x10), 200.0);
    bench.Run(binding, WorkerKind::FormBG, {{.id = 0x11, .time = 900}});
    EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_Received(0x10), 0);
    EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_ReceivedTime(0x11), 0.0);
    bench.Run(binding, WorkerKind::FormBG_29, {{.id = 0x10}, {.id = 0x12}});
    bench.Run(binding, WorkerKind::FormBG_29, {{.id = 0x11, .time = 900}});
    EXPECT_EQ(bench.workers.FormBG_29_tables.frames->CAN29_Received_ID_Counter, 1);
    EXPECT_EQ(bench.workers.FormBG_29_tables.frames->CAN29_Received_ID(0), 0x11);
  }
}

TEST(RunStart, TableSurvivesTheEndOfARun) {
  RunBench bench;
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG, {{.id = 0x10}});
  EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_Received(0x10), 3);
}

TEST(RunStart, FootOfThePageIsMadeOnceFromTheSettings) {
  RunBench bench;
  bench.device.t_DisableID_ON(2, 1);
  bench.device.t_DisableID_Start(2, 0x100);
  bench.device.t_DisableID_End(2, 0x1FF);
  String page;
  bench.events = {[&] {
    bench.device.t_DisableID_ON(2, 0);
    bench.timers[0].Tick();
    page = bench.RTB_MainView.Text();
    bench.RxFlag = 0;
  }};
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
  EXPECT_NE(page.find(u"メッセージ除外範囲 3： 100 ～ 1FF"), String::npos);
}

TEST(RunStart, SubfolderIsMadeOncePerRunAlsoWithoutALog) {
  for (const AdapterKind binding : kAllBindings) {
    RunBench bench;
    bench.device.t_LogSave_subFolder = 1;
    bench.device.t_LogComment = u"bench";
    bench.Run(binding, WorkerKind::FormBG);
    EXPECT_TRUE(bench.files.FolderExists(u"C:\\Tolvane\\bench"));
    EXPECT_FALSE(bench.files.FolderExists(u"C:\\Tolvane\\bench-002"));
  }
}

TEST(RunStart, SubfolderFlagOtherThanOneMakesNone) {
  for (const std::int32_t flag : {0, 2, -1}) {
    RunBench bench;
    bench.LogToCsv();
    bench.device.t_LogSave_subFolder = flag;
    bench.device.t_LogComment = u"bench";
    bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
    EXPECT_FALSE(bench.files.FolderExists(u"C:\\Tolvane\\bench")) << flag;
    EXPECT_NE(bench.Log(), "no file") << flag;
  }
}

TEST(RunStart, LogsGoToTheSubfolder) {
  RunBench bench;
  bench.LogToCsv();
  bench.device.t_LogSave_subFolder = 1;
  bench.device.t_LogComment = u"bench";
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
  EXPECT_TRUE(bench.files.FileExists(u"C:\\Tolvane\\bench\\KL26112009-001.csv"));
}

// The flag of the subfolder is read at the flush as well, so a name left by the run before would
// show.
TEST(RunStart, NeitherFolderNorFileNameOfTheRunBeforeIsUsed) {
  RunBench bench;
  bench.LogToCsv();
  bench.device.t_LogSave_subFolder = 1;
  bench.device.t_LogComment = u"bench";
  bench.files.AddFolder(u"C:\\Tolvane\\bench");
  bench.files.AddFile(u"C:\\Tolvane\\bench\\KL26112009-001.csv", "taken");
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      SCOPED_TRACE(WayName(binding, worker));
      bench.files.Remove(u"C:\\Tolvane\\bench-002");
      bench.device.t_LogSave_subFolder = 1;
      bench.Run(binding, worker);
      EXPECT_TRUE(bench.files.FileExists(u"C:\\Tolvane\\bench-002\\KL26112009-001.csv"));

      bench.device.t_LogSave_subFolder = 0;
      bench.events = {[&] {
        bench.device.t_LogSave_subFolder = 1;
        bench.RxFlag = 0;
      }};
      bench.Run(binding, worker);
      EXPECT_NE(bench.Log(1), "no file");
      bench.files.Remove(u"C:\\Tolvane\\KL26112009-001.csv");
    }
  }
}

TEST(RunStart, FileNumbersAreSearchedFromTheFirstOn) {
  RunBench bench;
  bench.LogToCsv();
  bench.files.AddFile(u"C:\\Tolvane\\KL26112009-001.csv", "taken");
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
  EXPECT_NE(bench.Log(2), "no file");
  bench.files.Remove(u"C:\\Tolvane\\KL26112009-001.csv");
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
  EXPECT_NE(bench.Log(1), "no file");
}

}  // namespace
}  // namespace tolvane
