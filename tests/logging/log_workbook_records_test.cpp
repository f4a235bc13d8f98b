#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/logging/workbook_test.h"

namespace tolvane {
namespace {

class WorkbookRecords : public WorkbookTest {};

TEST_F(WorkbookRecords, HeadOfTheTableNamesTheColumns) {
  FlushWorkbook(1);
  const auto& tables = servers.Tables();
  const auto head = std::find_if(tables.begin(), tables.end(),
                                 [](const auto& table) { return table.columns == 12; });
  ASSERT_NE(head, tables.end());
  EXPECT_EQ(head->cells, (std::vector<String>{u"経過時間 [ms]", u"EX", u"CAN ID", u"DLC", u"D1",
                                              u"D2", u"D3", u"D4", u"D5", u"D6", u"D7", u"D8"}));
}

TEST_F(WorkbookRecords, RecordsCrossAsTextsAndEmptyRowsAsEmptyTexts) {
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

TEST_F(WorkbookRecords, ChannelTwoKeepsItsZeros) {
  db.Excel_DB_ArayyCh = 2;
  db.Excel_DataInput29(1.0, 1, 1, kBytes, 1);
  FlushWorkbook(1);
  EXPECT_EQ(Cell(0, 2), u"");
  FlushWorkbook(2);
  EXPECT_EQ(Cell(0, 2), u"00000001");
}

TEST_F(WorkbookRecords, AWrittenTableIsBlankAgain) {
  db.Excel_DataInput29(1.0, 1, 8, kBytes, 1);
  FlushWorkbook(1);
  FlushWorkbook(1);
  for (std::size_t column = 0; column < 12; ++column) EXPECT_EQ(Cell(0, column), u"") << column;
}

TEST_F(WorkbookRecords, AFailedFlushLeavesTheStarOfAnExtendedFrame) {
  db.Excel_DataInput29(1.0, 0x100, 8, kBytes, 1);
  servers.FailAt(1);
  RollOverNow(objExcel.get());
  RollOverNow(objExcel.get());
  db.Excel_DataInput29(2.0, 0x200, 1, kBytes, 0);
  FlushWorkbook(1);
  EXPECT_EQ(Cell(0, 0), u"2");
  EXPECT_EQ(Cell(0, 1), u"*") << "stale: nobody blanked it";
  EXPECT_EQ(Cell(0, 2), u"00000200");
  EXPECT_EQ(Cell(0, 4), u"00");
  EXPECT_EQ(Cell(0, 5), u"") << "bytes behind the length are blanked";
}

TEST_F(WorkbookRecords, AnotherChannelNumberFillsNoRecordsAndClearsNothing) {
  db.Excel_DataInput(1.0, 0x123, 8, kBytes, 0);
  for (const std::int32_t Output_ch : {0, 3}) {
    FlushWorkbook(Output_ch);
    EXPECT_EQ(servers.Tables().back().cells.size(), 12U) << "only the head of the table";
  }
  FlushWorkbook(1);
  EXPECT_EQ(Cell(0, 2), u"123");
}

TEST_F(WorkbookRecords, TheFlagOfOneIsAStarInRecordsOfBothWidths) {
  for (const std::int32_t can_Flag : {0, 1, 2, -1}) {
    db.Excel_DataInput(1.0, 1, 0, kBytes, can_Flag);
    db.Excel_DataInput29(1.0, 1, 0, kBytes, can_Flag);
  }
  FlushWorkbook(1);
  for (std::size_t row = 0; row < 8; ++row) {
    EXPECT_EQ(Cell(row, 1), row / 2 == 1 ? u"*" : u"") << row;
  }
}

TEST_F(WorkbookRecords, ARunBeginsWithBlankTables) {
  for (const std::int32_t channel : {1, 2}) {
    db.Excel_DB_ArayyCh = channel;
    db.Excel_DataInput29(1.0, 1, 8, kBytes, 1);
  }
  db.Excel_DB_ArayyCounter_MAX = 5;
  StartRun();
  EXPECT_EQ(db.Excel_DB_ArayyCounter_MAX, 20000);
  for (const std::int32_t channel : {1, 2}) {
    FlushWorkbook(channel);
    for (std::size_t cell = 0; cell < 24; ++cell) EXPECT_EQ(Cell(0, cell), u"") << channel;
  }
}

TEST(LogTable, ClearingTakesBothBoundsIn) {
  LogTable table;
  for (std::int32_t row = 0; row < 3; ++row) {
    for (std::int32_t column = 0; column < 3; ++column) table(row, column) = u"x";
  }
  Excel_OutputDB::Arayy_ALL_Clear_zero_string(1, 0, table);
  const StringView expected[] = {u"", u"x", u"x", u"", u"x", u"x", u"x", u"x", u"x"};
  for (std::int32_t cell = 0; cell < 9; ++cell) {
    EXPECT_EQ(table(cell / 3, cell % 3), expected[cell]) << cell;
  }
}

}  // namespace
}  // namespace tolvane
