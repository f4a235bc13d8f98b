// The session ends although it was refused during a run.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/run/control/run_control.h"

namespace tolvane {
namespace {

class SessionEnd : public RunControl {
 protected:
  SessionEnd() {
    form_.device.t_LogSave_Enable = 1;
    memory_.canusbdrv.frames.Play({Frame(0x123)});
  }

  static platform::CanusbMessage Frame(std::int32_t id) {
    return {.id = id, .timestamp = 0, .flags = 0, .len = 1, .data = {7}};
  }
  [[nodiscard]] std::string Bytes(StringView file) {
    return memory_.files.Bytes(bench_.Path(kFolder, file)).value_or("no file");
  }
};

TEST_F(SessionEnd, SavesRecordsPageAndSettingsBeforeItReturns) {
  window_.TB_LogComment.Type(u"最後の走行");
  Connect({[this] {
    memory_.FormBG.Tick();
    ASSERT_TRUE(form_.ClosingIsRefused());
    const std::int64_t yields = memory_.events.Yields();
    form_.device.t_bitRate = 5;
    form_.Session_Ends();
    EXPECT_EQ(memory_.events.Yields(), yields) << "a yield lets a click in";
    EXPECT_NE(Bytes(u"KL26010509-001.csv").find(" , 123 , 1 ,  07\r\n"), std::string::npos);
    EXPECT_NE(Bytes(u"lglist.dat").find("123"), std::string::npos);
    EXPECT_NE(Bytes(u"config.dat"), "no file");
  }});
  EXPECT_FALSE(form_.ClosingIsRefused()) << "the run has ended by itself";
  EXPECT_FALSE(bench_.Wrote(u"KL26010509-002.csv"));

  Form1Bench next;
  for (const StringView file : {u"lglist.dat", u"config.dat"}) {
    next.memory.files.AddFile(next.Path(kFolder, file), Bytes(file));
  }
  next.Start();
  EXPECT_EQ(next.form.device.t_bitRate, 5);
  EXPECT_EQ(next.form.device.t_LogComment, u"最後の走行");
}

TEST_F(SessionEnd, UnderAMessageBeforeTheRunOnlyPageAndSettingsAreSaved) {
  memory_.canusbdrv.open_result = -1;
  memory_.message_box.WhileShown([this] { form_.Session_Ends(); });
  Connect();
  EXPECT_NE(Bytes(u"config.dat"), "no file");
  EXPECT_FALSE(bench_.Wrote(u"KL26010509-001.csv"));
}

TEST_F(SessionEnd, WhileTheSpreadsheetServerStartsNothingIsReceivedAnyMore) {
  form_.device.t_LogSaveFormat = kLogFormatSpreadsheet;
  form_.device.ExcelInstallCheck = 1;
  memory_.automation.Register(u"Excel.Application", 16);
  bool ended = false;
  memory_.automation.WhileCalled([this, &ended] {
    if (std::exchange(ended, true)) return;
    ASSERT_TRUE(form_.ClosingIsRefused());
    form_.Session_Ends();
    EXPECT_NE(Bytes(u"config.dat"), "no file");
  });
  Connect();
  EXPECT_TRUE(ended);
  EXPECT_TRUE(bench_.Noted("canusb_Open").empty());
  EXPECT_FALSE(memory_.canusbdrv.frames.Empty());
  EXPECT_EQ(form_.objExcel, nullptr) << "the server is ended all the same";
  EXPECT_FALSE(form_.ClosingIsRefused());
}

}  // namespace
}  // namespace tolvane
