// Frames of each of the twelve ways in the records of a workbook.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

class SpreadsheetBench : public RunBench {
 public:
  SpreadsheetBench() {
    automation.Register(u"Excel.Application");
    objExcel = automation.CreateObject(u"Excel.Application");
    device.ExcelInstallCheck = 1;
    device.t_LogSave_Enable = 1;
    device.t_LogSaveFormat = kLogFormatSpreadsheet;
  }

  /// A text of the records that were sent last, after the head of the table.
  [[nodiscard]] String Cell(std::size_t row, std::size_t column) const {
    const auto& cells = automation.Tables().back().cells;
    return cells.size() == 20001U * 12U ? cells[row * 12 + column] : u"no records";
  }
};

TEST(SpreadsheetRecords, ReachTheServerOnEachOfTheTwelveWays) {
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      SCOPED_TRACE(WayName(binding, worker));
      const bool is29 = Is29Bit(worker);
      SpreadsheetBench bench;
      bench.Run(binding, worker,
                {{.id = 0x10}, {.id = 0x11, .extended = is29, .time = 40, .dlc = 2}});
      const auto& lines = bench.journal.Lines();
      EXPECT_EQ(std::count(lines.begin(), lines.end(),
                           "call Excel.Application.ActiveWorkbook.SaveAs("
                           "\"C:\\Tolvane\\KL26112009-001.xls\")"),
                1);
      ASSERT_FALSE(bench.automation.Tables().empty());
      EXPECT_EQ(bench.Cell(0, 0), u"0");
      EXPECT_EQ(bench.Cell(0, 1), u"");
      EXPECT_EQ(bench.Cell(0, 2), is29 ? u"00000010" : u"010");
      EXPECT_EQ(bench.Cell(0, 11), u"08");
      EXPECT_EQ(bench.Cell(1, 0), u"40");
      EXPECT_EQ(bench.Cell(1, 1), is29 ? u"*" : u"");
      EXPECT_EQ(bench.Cell(1, 2), is29 ? u"00000011" : u"011");
      EXPECT_EQ(bench.Cell(1, 3), u"2");
      EXPECT_EQ(bench.Cell(2, 2), u"");
    }
  }
}

TEST(SpreadsheetRecords, MarkTheFramesThatTheAdapterCallsExtended) {
  const std::array<std::uint8_t, 8> data = {};
  for (const WorkerKind worker : {WorkerKind::FormBG_29, WorkerKind::FormBG2_29}) {
    SCOPED_TRACE(WayName(AdapterKind::kKvaser, worker));
    SpreadsheetBench kvaser;
    kvaser.canlib32.frames.Play(
        {{1, data, 0, 2, 0}, {1, data, 0, 4, 0}, {1, data, 0, 3, 0}, {9, data, 0, 0x24, 0}});
    kvaser.Run(AdapterKind::kKvaser, worker);
    SpreadsheetBench canusb;
    canusb.canusbdrv.frames.Play(
        {{1, 0, 0, 0, data}, {1, 0, 128, 0, data}, {1, 0, 64, 0, data}, {1, 0, 192, 0, data}});
    canusb.Run(AdapterKind::kCanusb, worker);
    // A Kvaser frame is standard or counts as extended; twice CANUSB's bit is no extended frame.
    const StringView kKvaserMarks[] = {u"", u"*", u"*", u"*"};
    const StringView kCanusbMarks[] = {u"", u"*", u"", u""};
    for (std::size_t row = 0; row < 4; ++row) {
      EXPECT_EQ(kvaser.Cell(row, 1), kKvaserMarks[row]) << row;
      EXPECT_EQ(canusb.Cell(row, 1), kCanusbMarks[row]) << row;
    }
  }
}

}  // namespace
}  // namespace tolvane
