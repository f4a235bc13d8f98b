// The end of the Windows session during a run that logs: its records are on the disk when
// the handler returns, as the process may be ended then.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

std::vector<BusFrame> SomeFrames(bool extended) {
  return {{.id = 0x7, .extended = extended, .dlc = 0},
          {.id = 0x12, .extended = extended, .time = 5, .dlc = 1},
          {.id = 0x7FF, .time = 1'234'567, .dlc = 8}};
}

TEST(SessionEnd, RecordsOfEveryWayAreWrittenAtOnceAndNotTwice) {
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      SCOPED_TRACE(WayName(binding, worker));
      const std::vector<BusFrame> frames = SomeFrames(Is29Bit(worker));
      RunBench undisturbed;
      undisturbed.LogToCsv();
      undisturbed.device.t_msgID_type = Is29Bit(worker) ? kMsgIdType29Bit : 0;
      undisturbed.Run(binding, worker, frames);

      RunBench bench;
      bench.LogToCsv();
      bench.device.t_msgID_type = undisturbed.device.t_msgID_type;
      std::string at_once;
      bench.events = {[&] {
        const std::int64_t yields = bench.loop.Yields();
        bench.Session_End_Output();
        EXPECT_EQ(bench.loop.Yields(), yields);
        at_once = bench.Log();
        bench.RxFlag = 0;
      }};
      bench.Run(binding, worker, frames);
      EXPECT_EQ(at_once, undisturbed.Log());
      EXPECT_NE(at_once.find("1234"), std::string::npos) << at_once;
      EXPECT_EQ(bench.Log(2), "no file");
      EXPECT_FALSE(bench.Session_End_Output);
    }
  }
}

// A spreadsheet server may be in a call, or be ended before the program.
TEST(SessionEnd, RecordsOfASpreadsheetLogBecomeTheLinesOfATextLog) {
  for (const WorkerKind worker : {WorkerKind::FormBG, WorkerKind::FormBG_29}) {
    SCOPED_TRACE(WayName(AdapterKind::kCanusb, worker));
    const std::vector<BusFrame> frames = SomeFrames(Is29Bit(worker));
    RunBench text;
    text.LogToCsv();
    text.device.t_msgID_type = Is29Bit(worker) ? kMsgIdType29Bit : 0;
    text.Run(AdapterKind::kCanusb, worker, frames);

    RunBench bench;
    bench.device.t_LogSave_Enable = 1;
    bench.device.t_LogSaveFormat = kLogFormatSpreadsheet;
    bench.device.ExcelInstallCheck = 1;
    bench.device.t_msgID_type = text.device.t_msgID_type;
    bench.automation.Register(u"Excel.Application");
    bench.objExcel = bench.automation.CreateObject(u"Excel.Application");
    const std::int32_t operations = bench.automation.Operations();
    bench.events = {[&] {
      bench.Session_End_Output();
      EXPECT_EQ(bench.Log(), text.Log());
      bench.RxFlag = 0;
    }};
    bench.Run(AdapterKind::kCanusb, worker, frames);
    EXPECT_EQ(bench.automation.Operations(), operations) << "the server was called";
  }
}

// 20,001 records are on their way to a file whose name is still looked for.
TEST(SessionEnd, InTheMidstOfAFlushNothingIsLost) {
  constexpr std::int64_t kChannel = 20'001;
  RunBench bench;
  bench.LogToCsv();
  bench.files.AddFile(u"C:\\Tolvane\\KL26112009-001.csv", "taken");
  bench.Play(AdapterKind::kCanusb, {{.id = 0x10}}, kChannel);
  bench.events = {[&] {
    bench.Session_End_Output();
    bench.RxFlag = 0;
  }};
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG);
  EXPECT_EQ(bench.Log(1), "taken");
  const std::string records = bench.Records(2);
  EXPECT_EQ(std::count(records.begin(), records.end(), '\n'), kChannel);
}

// The disk takes the records of the first channel only once the second one is filled.
TEST(SessionEnd, RecordsThatAFlushCouldNotWriteAreNotLost) {
  constexpr std::size_t kChannel = 20'001;
  for (const WorkerKind worker : {WorkerKind::FormBG, WorkerKind::FormBG_29}) {
    SCOPED_TRACE(WayName(AdapterKind::kCanusb, worker));
    const bool extended = Is29Bit(worker);
    RunBench bench;
    bench.LogToCsv();
    bench.device.t_msgID_type = extended ? kMsgIdType29Bit : 0;
    bench.files.Protect(u"C:\\Tolvane", true);
    bench.events = {[&] {
      bench.files.Protect(u"C:\\Tolvane", false);
      bench.Session_End_Output();
      bench.RxFlag = 0;
    }};
    bench.Play(AdapterKind::kCanusb, {{.id = 0x10, .extended = extended, .dlc = 1}}, kChannel + 2);
    bench.Run(AdapterKind::kCanusb, worker);

    const std::string line11 = "         0 , 010 , 1 ,  01\r\n";
    const std::string line29 = "         0 , * , 00000010 , 1 ,  01\r\n";
    std::string first;
    for (std::size_t i = 0; i < kChannel; ++i) first += extended ? line29 : line11;
    if (extended) first += "000000000000";  // stray zeros of the other channel
    EXPECT_TRUE(bench.Records(1) == first) << bench.Records(1).size() << " bytes";
    const std::string line = extended ? "         0 , * , 10 , 1 ,  01\r\n" : line11;
    EXPECT_EQ(bench.Records(2), line + line);
    EXPECT_EQ(bench.Log(3), "no file");
  }
}

TEST(SessionEnd, ARunWithoutLogHasNothingToWrite) {
  RunBench bench;
  bench.events = {[&] {
    EXPECT_FALSE(bench.Session_End_Output);
    bench.RxFlag = 0;
  }};
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG, {{.id = 0x10}});

  // Of a format that no flush writes there is no file at this end either.
  bench.device.t_LogSave_Enable = 1;
  bench.device.t_LogSaveFormat = 7;
  bench.events = {[&] {
    bench.Session_End_Output();
    bench.RxFlag = 0;
  }};
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG, {{.id = 0x10}});
  EXPECT_EQ(bench.Log(), "no file");
}

TEST(SessionEnd, AFullDiskLosesTheRecordsWithoutAWord) {
  RunBench bench;
  bench.LogToCsv();
  bench.files.FreeSpace(0);
  bench.events = {[&] {
    bench.Session_End_Output();
    bench.RxFlag = 0;
  }};
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG, {{.id = 0x10}});
  EXPECT_TRUE(bench.message_box.Boxes().empty());
}

}  // namespace
}  // namespace tolvane
