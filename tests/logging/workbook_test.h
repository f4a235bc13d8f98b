#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>

#include "tests/logging/log_test.h"

namespace tolvane {

/// A log that goes to workbooks in xlsx format of a present-day Excel.
class WorkbookTest : public LogTest {
 protected:
  WorkbookTest() {
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
    const auto& table = servers.Tables().back();
    return table.cells[row * table.columns + column];
  }

  std::unique_ptr<platform::AutomationObject> objExcel;
};

}  // namespace tolvane
