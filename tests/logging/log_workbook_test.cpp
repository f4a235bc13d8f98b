#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/logging/workbook_test.h"

namespace tolvane {
namespace {

class Workbook : public WorkbookTest {};

constexpr std::int32_t kCallsBehindTheYield = 4;  // two to save, two to close

/// One value with its font size, as the head of the sheet is filled.
void AppendHeadCell(std::vector<std::string>& lines, const std::string& address,
                    const std::string& value, int size) {
  const std::string cell = "Excel.Application.ActiveSheet.Range(\"" + address + "\")";
  lines.push_back("get " + cell);
  lines.push_back("put " + cell + ".Value = table \"" + value + "\"");
  lines.push_back("get " + cell + ".Font");
  lines.push_back("put " + cell + ".Font.size = " + std::to_string(size));
}

std::vector<std::string> WholeFlush() {
  const std::string sheet = "Excel.Application.ActiveSheet";
  std::vector<std::string> lines = {"get Excel.Application.Workbooks",
                                    "call Excel.Application.Workbooks.Add()",
                                    "get " + sheet,
                                    "get " + sheet + ".cells",
                                    "get " + sheet + ".cells.Font",
                                    "put " + sheet + ".cells.Font.size = 10"};
  AppendHeadCell(lines, "A1", "Tolvane Ver1.23", 10);
  AppendHeadCell(lines, "A2", "https://tolvane.example/", 8);
  AppendHeadCell(lines, "A3", "CANUSB ABCD 、V1.0", 9);
  AppendHeadCell(lines, "A4", "ＣＡＮ受信ログ", 10);
  AppendHeadCell(lines, "C1", "Copyright (C) 2026 Tolvane Project", 8);
  AppendHeadCell(lines, "D2", "bit rate：500k bps", 10);
  AppendHeadCell(lines, "H1", "2026/11/20 9:05:07", 10);
  const std::string head = sheet + ".Range(" + sheet + ".cells(6, 1), " + sheet + ".cells(6, 12))";
  const std::string records =
      sheet + ".Range(" + sheet + ".cells(7, 1), " + sheet + ".cells(20007, 12))";
  const std::string book = "Excel.Application.ActiveWorkbook";
  const std::vector<std::string> rest = {
      "get " + sheet + ".Range(\"H1:K1\")",
      "put " + sheet + ".Range(\"H1:K1\").MergeCells = True",
      "get " + sheet + ".Range(\"H1:K2\")",
      "put " + sheet + ".Range(\"H1:K2\").HorizontalAlignment = -4152",
      "get " + sheet + ".cells(6, 1)",
      "get " + sheet + ".cells(6, 12)",
      "get " + head,
      "put " + head + ".Value = table 1 x 12",
      "get " + head + ".Interior",
      "put " + head + ".Interior.ColorIndex = 36",
      "get " + head + ".Borders",
      "put " + head + ".Borders.LineStyle = 1",
      "get " + head + ".Font",
      "put " + head + ".Font.size = 9",
      "get " + sheet + ".Columns(1)",
      "put " + sheet + ".Columns(1).ColumnWidth = 11",
      "get " + sheet + ".Columns(2)",
      "put " + sheet + ".Columns(2).ColumnWidth = 4",
      "get " + sheet + ".Columns(3)",
      "put " + sheet + ".Columns(3).ColumnWidth = 7",
      "get " + sheet + ".Columns(4)",
      "put " + sheet + ".Columns(4).ColumnWidth = 5",
      "get " + sheet + ".Columns(\"E:L\")",
      "put " + sheet + ".Columns(\"E:L\").ColumnWidth = 4",
      "get " + sheet + ".cells(7, 1)",
      "get " + sheet + ".cells(20007, 12)",
      "get " + records,
      "put " + records + ".Value = table 20001 x 12",
      "get " + sheet + ".cells(7, 1)",
      "call " + sheet + ".cells(7, 1).AutoFilter(1)",
      "yield",
      "get " + book,
      "call " + book + ".SaveAs(FileName:=\"C:\\Tolvane\\KL26112009-001.xlsx\", FileFormat:=51)",
      "get " + book,
      "call " + book + ".Close()"};
  lines.insert(lines.end(), rest.begin(), rest.end());
  return lines;
}

TEST_F(Workbook, IsMadeByTheseCallsInThisOrder) {
  events.OnYield([this] { journal.Note("yield"); });
  FlushWorkbook(1);
  const auto expected = WholeFlush();
  const auto& lines = journal.Lines();
  for (std::size_t i = 0; i < std::min(lines.size(), expected.size()); ++i) {
    ASSERT_EQ(lines[i], expected[i]) << "call " << i;
  }
  EXPECT_EQ(lines.size(), expected.size());
}

TEST_F(Workbook, TakesTheSameNumberOfCallsWhateverTheRecords) {
  const std::int32_t calls = static_cast<std::int32_t>(WholeFlush().size()) - 1;
  FlushWorkbook(1);
  EXPECT_EQ(servers.Operations(), calls);
  for (std::int32_t i = 0; i <= 20000; ++i) db.Excel_DataInput(i, 0x100, 8, kBytes, 0);
  FlushWorkbook(1);
  EXPECT_EQ(servers.Operations(), 2 * calls);
  EXPECT_EQ(servers.LiveObjects(), 1) << "all but the server itself are let go";
}

TEST_F(Workbook, EveryRefusedCallEndsTheFlushAndTheNextOneWorks) {
  const std::int32_t calls = static_cast<std::int32_t>(WholeFlush().size()) - 1;
  for (std::int32_t n = 1; n <= calls; ++n) {
    StartRun();
    db.Excel_DataInput(1.0, 0x123, 8, kBytes, 0);
    const std::int32_t before = servers.Operations();
    const std::int64_t yields_before = events.Yields();
    servers.FailAt(n);
    FlushWorkbook(1);
    EXPECT_EQ(events.Yields() - yields_before, n > calls - kCallsBehindTheYield ? 1 : 0) << n;
    EXPECT_EQ(servers.Operations() - before, n) << "nothing is asked behind the refused call";
    EXPECT_EQ(servers.LiveObjects(), 1) << n;
    FlushWorkbook(1);
    EXPECT_EQ(Cell(0, 2), u"123") << "the table is kept, call " << n;
    FlushWorkbook(1);
    EXPECT_EQ(Cell(0, 2), u"") << n;
  }
}

TEST_F(Workbook, EachFlushWaitsForABusyServerWithAPatienceOfItsOwn) {
  FlushWorkbook(1);
  FlushWorkbook(2);
  EXPECT_EQ(servers.Sequences(), (std::vector<std::int32_t>{0, servers.Operations() / 2}));
}

TEST_F(Workbook, WithoutAServerObjectNothingIsAsked) {
  db.Excel_DataInput(1.0, 0x123, 8, kBytes, 0);
  Flush(1, nullptr);
  EXPECT_EQ(servers.Operations(), 0);
  FlushWorkbook(1);
  EXPECT_EQ(Cell(0, 2), u"123");
}

TEST_F(Workbook, WithoutAnInstalledServerNothingIsWrittenOrCleared) {
  db.Excel_DataInput(1.0, 0x123, 8, kBytes, 0);
  device.ExcelInstallCheck = 0;
  FlushWorkbook(1);
  EXPECT_EQ(servers.Operations(), 0);
  EXPECT_TRUE(files.Files(u"C:\\Tolvane").empty());
  device.ExcelInstallCheck = 2;
  FlushWorkbook(1);
  EXPECT_EQ(Cell(0, 2), u"123");
}

TEST_F(Workbook, ExclusionInForceIsMarked) {
  device.t_Save_ID_DisableMode = 1;
  FlushWorkbook(1);
  const auto& lines = journal.Lines();
  const auto mark =
      std::find(lines.begin(), lines.end(),
                "put Excel.Application.ActiveSheet.Range(\"K2\").Value = table \"除外ON\"");
  ASSERT_NE(mark, lines.end());
  EXPECT_EQ(*(mark - 2),
            "put Excel.Application.ActiveSheet.Range(\"H1:K2\").HorizontalAlignment = -4152");
}

TEST_F(Workbook, AnExclusionModeOtherThanOneLeavesNoMark) {
  for (const std::int32_t mode : {0, 2, -1}) {
    device.t_Save_ID_DisableMode = mode;
    FlushWorkbook(1);
    for (const std::string& line : journal.Take()) {
      EXPECT_EQ(line.find("Range(\"K2\")"), std::string::npos) << mode << ": " << line;
    }
  }
}

TEST_F(Workbook, IdentifierColumnIsWiderIn29BitModeOnly) {
  struct Row {
    std::int32_t t_msgID_type;
    const char* width;
  };
  for (const Row& row : {Row{kMsgIdType29Bit, "9"}, Row{0, "7"}, Row{1, "7"}}) {
    device.t_msgID_type = row.t_msgID_type;
    FlushWorkbook(1);
    const auto lines = journal.Take();
    EXPECT_EQ(
        std::count(
            lines.begin(), lines.end(),
            std::string("put Excel.Application.ActiveSheet.Columns(3).ColumnWidth = ") + row.width),
        1)
        << row.t_msgID_type;
  }
}

TEST_F(Workbook, SaveFollowsVersionAndFormat) {
  struct Row {
    const char* label;
    std::int32_t version;
    std::int32_t format;
    const char* save;  // null for none
  };
  const Row rows[] = {
      {"old server", 11, 1, "SaveAs(\"C:\\Tolvane\\KL26112009-001.xls\")"},
      {"old server asked for xlsx", 11, 2, "SaveAs(\"C:\\Tolvane\\KL26112009-001.xls\")"},
      {"Kingsoft only", 0, 2, "SaveAs(\"C:\\Tolvane\\KL26112009-001.xls\")"},
      {"xls", 12, 1, "SaveAs(FileName:=\"C:\\Tolvane\\KL26112009-001.xls\", FileFormat:=56)"},
      {"xlsx", 12, 2, "SaveAs(FileName:=\"C:\\Tolvane\\KL26112009-001.xlsx\", FileFormat:=51)"},
      {"unknown format", 16, 0, nullptr},
      {"unknown format", 16, 3, nullptr}};
  for (const Row& row : rows) {
    (void)journal.Take();
    device.ExcelInstallVersion = row.version;
    device.t_Excel_Format = row.format;
    FlushWorkbook(1);
    std::vector<std::string> lines = journal.Take();
    ASSERT_GE(lines.size(), 4U);
    EXPECT_EQ(lines.back(), "call Excel.Application.ActiveWorkbook.Close()") << row.label;
    const std::string before = lines[lines.size() - 3];
    if (row.save != nullptr) {
      EXPECT_EQ(before, std::string("call Excel.Application.ActiveWorkbook.") + row.save)
          << row.label;
    } else {
      EXPECT_EQ(before, "call Excel.Application.ActiveSheet.cells(7, 1).AutoFilter(1)")
          << row.label;
    }
  }
}

TEST_F(Workbook, TheFlushItselfLetsEventsInOnlyBeforeTheSave) {
  std::int32_t yields_at_call = 0;
  std::int32_t calls_after_yield = 0;
  servers.WhileCalled([&] {
    yields_at_call = static_cast<std::int32_t>(events.Yields());
    if (yields_at_call > 0) ++calls_after_yield;
  });
  FlushWorkbook(1);
  EXPECT_EQ(events.Yields(), 1);
  EXPECT_EQ(calls_after_yield, kCallsBehindTheYield);
}

TEST_F(Workbook, YieldsForTakenNamesComeOnTop) {
  files.AddFile(u"C:\\Tolvane\\KL26112009-001.xlsx", "");
  files.AddFile(u"C:\\Tolvane\\KL26112009-002.xlsx", "");
  FlushWorkbook(1);
  EXPECT_EQ(events.Yields(), 3);
  EXPECT_EQ(FileName_No, u"003");
}

}  // namespace
}  // namespace tolvane
