#include "shell/common_function.h"

#include <gtest/gtest.h>

#include "platform/memory/automation/automation.h"
#include "platform/memory/system/journal.h"

namespace tolvane {
namespace {

using Version = platform::memory::AutomationServers::Version;

class OfficeCheck : public ::testing::Test {
 protected:
  OfficeCheck() { device.Param_ALL_Clear(); }

  platform::memory::Journal journal;
  platform::memory::AutomationServers servers{journal};
  ELM327_Info device{u"C:\\Tolvane"};
};

TEST_F(OfficeCheck, SpreadsheetServersAreCountedTogether) {
  struct Row {
    bool excel;
    bool ket;
    std::int32_t check;
    std::int32_t version;
    std::int32_t log_format;
  };
  for (const Row& row : {Row{false, false, 0, 0, 2}, Row{true, false, 1, 16, 1},
                         Row{false, true, 2, 0, 1}, Row{true, true, 3, 16, 1}}) {
    device.Param_ALL_Clear();
    platform::memory::AutomationServers installed(journal);
    if (row.excel) installed.Register(u"Excel.Application", String(u"16.0"));
    if (row.ket) installed.Register(u"Ket.Application", String(u"9.1"));
    Common_Function::Excel_Install_Check(device, installed);
    EXPECT_EQ(device.ExcelInstallCheck, row.check);
    EXPECT_EQ(device.ExcelInstallVersion, row.version) << "Excel's alone";
    EXPECT_EQ(device.t_LogSaveFormat, row.log_format);
    EXPECT_EQ(installed.LiveObjects(), 0);
  }
}

TEST_F(OfficeCheck, AsksInOrderAndLeavesNoServerBehind) {
  servers.Register(u"Excel.Application", String(u"16.0"));
  Common_Function::Excel_Install_Check(device, servers);
  EXPECT_EQ(journal.Lines(),
            (std::vector<std::string>{"create Excel.Application", "get Excel.Application.Version",
                                      "create Ket.Application"}));
}

TEST_F(OfficeCheck, VersionIsTheNumberInFrontOfThePoint) {
  struct Row {
    Version version;
    std::int32_t number;
  };
  const Row rows[] = {{String(u"16.0"), 16},
                      {String(u"9"), 9},
                      {String(u"20.0"), 20},
                      {14, 14},
                      {12.0, 12},
                      {11.9, 11},
                      {String(u"x"), 7},
                      {String(u""), 7},
                      {std::monostate{}, 7},
                      {1e300, 7},
                      {2147483647.0, 2147483647},
                      {2147483648.0, 7},
                      {String(u"99999999"), 99999999},
                      {String(u"100000000"), 7},
                      {String(u"99999999999"), 7}};
  for (const Row& row : rows) {
    servers.Register(u"Excel.Application", row.version);
    device.ExcelInstallVersion = 7;
    Common_Function::Excel_Install_Check(device, servers);
    EXPECT_EQ(device.ExcelInstallVersion, row.number) << "row " << &row - rows;
    EXPECT_EQ(device.ExcelInstallCheck, 1) << "a server without a version is a server";
  }
}

TEST_F(OfficeCheck, AccessIsNotedWithItsVersion) {
  Common_Function::Access_Install_Check(device, servers);
  EXPECT_EQ(device.AccessInstallCheck, 0);
  servers.Register(u"Access.Application", String(u"15.0"));
  Common_Function::Access_Install_Check(device, servers);
  EXPECT_EQ(device.AccessInstallCheck, 1);
  EXPECT_EQ(device.AccessInstallVersion, 15);
  EXPECT_EQ(device.t_LogSaveFormat, 1) << "no log format hangs on Access";
}

}  // namespace
}  // namespace tolvane
