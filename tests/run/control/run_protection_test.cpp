// During a run, and only then, the computer is kept awake, and a refused session end has a reason.
#include <gtest/gtest.h>

#include <functional>

#include "tests/run/control/run_control.h"

namespace tolvane {
namespace {

class RunProtection : public RunControl {
 protected:
  [[nodiscard]] bool On() const { return protection_.Begins() == protection_.Ends() + 1; }
  [[nodiscard]] bool Off() const { return protection_.Begins() == protection_.Ends(); }

  platform::memory::RunProtection& protection_ = memory_.run_protection;
};

TEST_F(RunProtection, LastsFromTheClickToTheLastFile) {
  EXPECT_EQ(protection_.Begins(), 0);
  for (const std::int32_t vender : {kVenderCanusb, kVenderInterface, kVenderKvaser}) {
    Choose(vender);
    Connect({[this] { EXPECT_TRUE(On()); }, [this] { EXPECT_TRUE(On()); }});
    EXPECT_TRUE(Off());
    EXPECT_EQ(protection_.Begins(), vender);
  }
}

TEST_F(RunProtection, HoldsWhileTheLastRecordsAreWritten) {
  form_.device.t_LogSave_Enable = 1;
  memory_.files.AddFile(kFolder + u"\\KL26010509-001.csv", "taken");  // the flush yields for it
  bool finishing = false;
  memory_.events.OnYield([&] {
    if (form_.RxFlag == 1) return form_.Bt_Disconnect_Click();
    finishing = true;
    EXPECT_TRUE(On());
  });
  form_.Bt_Connect_Click();
  EXPECT_TRUE(finishing);
  EXPECT_TRUE(Off());
}

TEST_F(RunProtection, EndsWithEveryRunThatCannotStart) {
  struct Row {
    const char* label;
    std::function<void()> spoil;
  };
  const Row rows[] = {
      {"no comment", [this] { form_.device.t_LogSave_subFolder = 1; }},
      {"no spreadsheet server",
       [this] {
         form_.device.t_LogSave_subFolder = 0;
         form_.device.t_LogSave_Enable = 1;
         form_.device.t_LogSaveFormat = kLogFormatSpreadsheet;
         form_.device.ExcelInstallCheck = 1;
       }},
      {"the adapter does not open",
       [this] {
         form_.device.t_LogSave_Enable = 0;
         memory_.canusbdrv.open_result = -1;
       }},
      {"no adapter", [this] { form_.device.t_select_Vender = 0; }},
      {"a rate that the adapter lacks",
       [this] {
         Choose(kVenderInterface);
         form_.device.t_bitRate = 99;
       }},
  };
  window_.TB_LogComment.Type(u"");
  std::int32_t runs = 0;
  for (const Row& row : rows) {
    row.spoil();
    Connect();
    EXPECT_TRUE(Off()) << row.label;
    EXPECT_EQ(protection_.Begins(), ++runs) << row.label;
  }
}

// Else a session's end would be refused without a reason.
TEST_F(RunProtection, IsOnWhereverClosingIsRefusedForARun) {
  memory_.canusbdrv.open_result = -1;
  bool shown = false;
  memory_.message_box.WhileShown([&] {
    shown = true;
    EXPECT_TRUE(form_.ClosingIsRefused());
    EXPECT_TRUE(On());
  });
  Connect();
  EXPECT_TRUE(shown);
}

}  // namespace
}  // namespace tolvane
