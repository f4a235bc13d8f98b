#include "logging/spreadsheet_server.h"

#include <gtest/gtest.h>

#include "platform/memory/automation/automation.h"
#include "platform/memory/system/journal.h"

namespace tolvane {
namespace {

class SpreadsheetServer : public ::testing::Test {
 protected:
  SpreadsheetServer() {
    device.Param_ALL_Clear();
    device.ExcelInstallCheck = 1;
    servers.Register(u"Excel.Application");
    servers.Register(u"Ket.Application");
  }

  platform::memory::Journal journal;
  platform::memory::AutomationServers servers{journal};
  ELM327_Info device{u"C:\\Tolvane"};
  std::unique_ptr<platform::AutomationObject> objExcel;
};

TEST_F(SpreadsheetServer, IsUsedOnlyForSpreadsheetLogsWithAServerInstalled) {
  EXPECT_TRUE(UsesSpreadsheetServer(device));
  for (const std::int32_t enable : {0, 2, -1}) {
    device.t_LogSave_Enable = enable;
    EXPECT_FALSE(UsesSpreadsheetServer(device)) << enable;
  }
  device.t_LogSave_Enable = 1;
  device.ExcelInstallCheck = 0;
  EXPECT_FALSE(UsesSpreadsheetServer(device));
  device.ExcelInstallCheck = -1;
  EXPECT_FALSE(UsesSpreadsheetServer(device));
  device.ExcelInstallCheck = 2;
  EXPECT_TRUE(UsesSpreadsheetServer(device));
  device.t_LogSaveFormat = kLogFormatCsv;
  EXPECT_FALSE(UsesSpreadsheetServer(device));
}

TEST_F(SpreadsheetServer, IsChosenByWhatIsInstalledAndTheSetting) {
  struct Row {
    std::int32_t installed;
    std::int32_t t_Excel_soft;
    const char* created;  // null for none
  };
  const Row rows[] = {{1, 1, "create Excel.Application"},
                      {1, 2, "create Excel.Application"},
                      {2, 1, "create Ket.Application"},
                      {2, 2, "create Ket.Application"},
                      {3, 1, "create Excel.Application"},
                      {3, 2, "create Ket.Application"},
                      {3, 0, nullptr},
                      {4, 1, nullptr}};
  for (const Row& row : rows) {
    device.ExcelInstallCheck = row.installed;
    device.t_Excel_soft = row.t_Excel_soft;
    const bool started = StartSpreadsheetServer(device, servers, objExcel);
    const auto lines = journal.Take();
    EXPECT_EQ(started, row.created != nullptr);
    EXPECT_EQ(objExcel != nullptr, started);
    EXPECT_EQ(lines.empty() ? "" : lines.front(), row.created == nullptr ? "" : row.created)
        << row.installed << ' ' << row.t_Excel_soft;
  }
}

TEST_F(SpreadsheetServer, IsMadeSilentAtTheStartAndGivenBackAtTheEnd) {
  ASSERT_TRUE(StartSpreadsheetServer(device, servers, objExcel));
  EXPECT_EQ(journal.Take(), (std::vector<std::string>{
                                "create Excel.Application",
                                "put Excel.Application.Visible = False",
                                "get Excel.Application.Application",
                                "put Excel.Application.Application.ScreenUpdating = False",
                                "get Excel.Application.Application",
                                "put Excel.Application.Application.Interactive = False",
                                "get Excel.Application.Application",
                                "put Excel.Application.Application.DisplayAlerts = False",
                            }));
  EXPECT_EQ(servers.Sequences(), std::vector<std::int32_t>{0});
  EXPECT_TRUE(EndSpreadsheetServer(objExcel));
  EXPECT_EQ(servers.Sequences(), (std::vector<std::int32_t>{0, 7})) << "its own patience";
  EXPECT_EQ(journal.Take(), (std::vector<std::string>{
                                "get Excel.Application.Application",
                                "put Excel.Application.Application.ScreenUpdating = True",
                                "get Excel.Application.Application",
                                "put Excel.Application.Application.Interactive = True",
                                "get Excel.Application.Application",
                                "put Excel.Application.Application.DisplayAlerts = True",
                                "call Excel.Application.Quit()",
                            }));
  EXPECT_EQ(objExcel, nullptr);
  EXPECT_EQ(servers.LiveObjects(), 0);
}

TEST_F(SpreadsheetServer, AnyRefusalAtTheStartIsAFailureThatKeepsTheServerToBeEnded) {
  for (std::int32_t n = 1; n <= 7; ++n) {
    servers.FailAt(n);
    EXPECT_FALSE(StartSpreadsheetServer(device, servers, objExcel)) << n;
    EXPECT_NE(objExcel, nullptr) << n;
    EXPECT_TRUE(EndSpreadsheetServer(objExcel)) << n;
    EXPECT_EQ(servers.LiveObjects(), 0) << n;
  }
}

TEST_F(SpreadsheetServer, IsQuitEvenIfItRefusesTheScreenState) {
  for (std::int32_t n = 1; n <= 7; ++n) {
    ASSERT_TRUE(StartSpreadsheetServer(device, servers, objExcel));
    (void)journal.Take();
    servers.FailAt(n);
    EXPECT_FALSE(EndSpreadsheetServer(objExcel)) << n;
    EXPECT_EQ(journal.Lines().back().substr(0, 29), "call Excel.Application.Quit()") << n;
    EXPECT_EQ(objExcel, nullptr) << n;
  }
}

TEST_F(SpreadsheetServer, WithoutOneEndingSucceeds) { EXPECT_TRUE(EndSpreadsheetServer(objExcel)); }

}  // namespace
}  // namespace tolvane
