#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tests/logging/log_test.h"

namespace tolvane {
namespace {

using platform::memory::AutomationServers;

/// One value with its font size, as the head of the sheet is filled.
void AppendHeadCell(std::vector<std::string>& lines, const std::string& address,
                    const std::string& value, int size) {
  const std::string cell = "Excel.Application.ActiveSheet.Range(\"" + address + "\")";
  lines.push_back("get " + cell);
  lines.push_back("put " + cell + ".Value = \"" + value + "\"");
  lines.push_back("get " + cell + ".Font");
  lines.push_back("put " + cell + ".Font.size = " + std::to_string(size));
}

class Workbook : public LogTest {
 protected:
  Workbook() {
    device.t_LogSaveFormat = kLogFormatSpreadsheet;
    device.ExcelInstallCheck = 1;
    device.ExcelInstallVersion = 16;
    device.t_Excel_Format = 2;
    StartRun();
    servers.Register(u"Excel.Application", String(u"16.0"));
    objExcel = servers.CreateObject(u"Excel.Application");
    (void)journal.Take();
  }

  void FlushWorkbook(std::int32_t Output_ch) { Flush(Output_ch, objExcel.get()); }

  /// Text of a cell of the last records that crossed, rows from 0 and columns from 0.
  String Cell(std::size_t row, std::size_t column) {
    const AutomationServers::Table& table = servers.Tables().back();
    return table.cells[row * table.columns + column];
  }

  std::unique_ptr<platform::AutomationObject> objExcel;
};

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

TEST_F(Workbook, HeadOfTheTableNamesTheColumns) {
  FlushWorkbook(1);
  EXPECT_EQ(servers.Tables().front().cells,
            (std::vector<String>{u"経過時間 [ms]", u"EX", u"CAN ID", u"DLC", u"D1", u"D2", u"D3",
                                 u"D4", u"D5", u"D6", u"D7", u"D8"}));
}

TEST_F(Workbook, RecordsCrossAsTextsAndEmptyRowsAsEmptyTexts) {
  db.Excel_DataInput(0.5, 0x00F, 0, kBytes, 0);
  db.Excel_DataInput(12.0, 0x7FF, 9, kBytes, 0);
  db.Excel_DataInput29(13.0, 0x1ABCDEF, 2, kBytes, 1);
  FlushWorkbook(1);
  ASSERT_EQ(servers.Tables().back().cells.size(), 20001U * 12U);
  const std::vector<std::vector<String>> rows = {
      {u"0.5", u"", u"00F", u"0", u"", u"", u"", u"", u"", u"", u"", u""},
      {u"12", u"", u"7FF", u"9", u"00", u"1A", u"FF", u"03", u"44", u"55", u"66", u"77"},
      {u"13", u"*", u"01ABCDEF", u"2", u"00", u"1A", u"", u"", u"", u"", u"", u""},
      {u"", u"", u"", u"", u"", u"", u"", u"", u"", u"", u"", u""}};
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < 12; ++column) {
      EXPECT_EQ(Cell(row, column), rows[row][column]) << row << ' ' << column;
    }
  }
  EXPECT_EQ(Cell(20000, 11), u"");
}

TEST_F(Workbook, ChannelTwoKeepsItsZeros) {
  db.Excel_DB_ArayyCh = 2;
  db.Excel_DataInput29(1.0, 1, 1, kBytes, 1);
  FlushWorkbook(1);
  EXPECT_EQ(Cell(0, 2), u"");
  FlushWorkbook(2);
  EXPECT_EQ(Cell(0, 2), u"00000001");
}

TEST_F(Workbook, AWrittenTableIsBlankAgain) {
  db.Excel_DataInput29(1.0, 1, 8, kBytes, 1);
  FlushWorkbook(1);
  FlushWorkbook(1);
  for (std::size_t column = 0; column < 12; ++column) EXPECT_EQ(Cell(0, column), u"") << column;
}

TEST_F(Workbook, AFailedFlushLeavesTheStarOfAnExtendedFrame) {
  db.Excel_DataInput29(1.0, 0x100, 8, kBytes, 1);
  servers.FailAt(1);
  FlushWorkbook(1);
  db.Excel_DB_ArayyCounter = 0;
  db.Excel_DataInput29(2.0, 0x200, 1, kBytes, 0);
  FlushWorkbook(1);
  EXPECT_EQ(Cell(0, 0), u"2");
  EXPECT_EQ(Cell(0, 1), u"*") << "stale: nobody blanked it";
  EXPECT_EQ(Cell(0, 2), u"00000200");
  EXPECT_EQ(Cell(0, 4), u"00");
  EXPECT_EQ(Cell(0, 5), u"") << "bytes behind the length are blanked";
}

TEST_F(Workbook, EveryRefusedCallEndsTheFlushAndTheNextOneWorks) {
  const std::int32_t calls = static_cast<std::int32_t>(WholeFlush().size()) - 1;
  for (std::int32_t n = 1; n <= calls; ++n) {
    StartRun();
    db.Excel_DataInput(1.0, 0x123, 8, kBytes, 0);
    const std::int32_t before = servers.Operations();
    servers.FailAt(n);
    FlushWorkbook(1);
    EXPECT_EQ(servers.Operations() - before, n) << "nothing is asked behind the refused call";
    EXPECT_EQ(servers.LiveObjects(), 1) << n;
    FlushWorkbook(1);
    EXPECT_EQ(Cell(0, 2), u"123") << "the table is kept, call " << n;
    FlushWorkbook(1);
    EXPECT_EQ(Cell(0, 2), u"") << n;
  }
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

TEST_F(Workbook, AnotherChannelNumberFillsNoRecordsAndClearsNothing) {
  db.Excel_DataInput(1.0, 0x123, 8, kBytes, 0);
  for (const std::int32_t Output_ch : {0, 3}) {
    FlushWorkbook(Output_ch);
    EXPECT_EQ(servers.Tables().back().cells.size(), 12U) << "only the head of the table";
  }
  FlushWorkbook(1);
  EXPECT_EQ(Cell(0, 2), u"123");
}

TEST_F(Workbook, ExclusionInForceIsMarked) {
  device.t_Save_ID_DisableMode = 1;
  FlushWorkbook(1);
  const auto& lines = journal.Lines();
  const auto mark = std::find(lines.begin(), lines.end(),
                              "put Excel.Application.ActiveSheet.Range(\"K2\").Value = \"除外ON\"");
  ASSERT_NE(mark, lines.end());
  EXPECT_EQ(*(mark - 2),
            "put Excel.Application.ActiveSheet.Range(\"H1:K2\").HorizontalAlignment = -4152");
}

TEST_F(Workbook, IdentifierColumnIsWiderIn29BitMode) {
  device.t_msgID_type = kMsgIdType29Bit;
  FlushWorkbook(1);
  const auto& lines = journal.Lines();
  EXPECT_NE(std::find(lines.begin(), lines.end(),
                      "put Excel.Application.ActiveSheet.Columns(3).ColumnWidth = 9"),
            lines.end());
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
  EXPECT_EQ(calls_after_yield, 4) << "two to save, two to close";
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
