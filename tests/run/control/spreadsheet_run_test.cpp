#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/run/control/run_control.h"

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class SpreadsheetRun : public RunControl {
 protected:
  SpreadsheetRun() {
    form_.device.t_LogSave_Enable = 1;
    form_.device.t_LogSaveFormat = kLogFormatSpreadsheet;
    form_.device.ExcelInstallCheck = 3;
    memory_.automation.Register(u"Excel.Application", 16);
    memory_.automation.Register(u"Ket.Application", 9);
  }
};

TEST_F(SpreadsheetRun, TheServerLivesFromBeforeTheCommentToTheEnd) {
  Connect({[this] { EXPECT_NE(form_.objExcel, nullptr); }});
  EXPECT_EQ(form_.objExcel, nullptr);
  EXPECT_EQ(memory_.automation.LiveObjects(), 0);
  const auto& lines = memory_.journal.Lines();
  const auto place = [&lines](const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) - lines.begin();
  };
  EXPECT_LT(place("Pic_Caution.Visible = true"), place("create Excel.Application"));
  EXPECT_LT(place("create Excel.Application"), place("TB_Status.Text = \"通信初期処理中\""));
  EXPECT_LT(place("TB_LogComment.Locked = false"), place("call Excel.Application.Quit()"));
  EXPECT_LT(place("call Excel.Application.Quit()"), static_cast<std::ptrdiff_t>(lines.size()));
}

TEST_F(SpreadsheetRun, TheServerIsHandedToTheRunOnEachAdapter) {
  for (const std::int32_t vender : {kVenderCanusb, kVenderInterface, kVenderKvaser}) {
    Choose(vender);
    memory_.journal.Clear();
    Connect();
    EXPECT_THAT(bench_.Noted("call Excel.Application.ActiveWorkbook.SaveAs"), SizeIs(1)) << vender;
  }
}

struct ServerRow {
  const char* label;
  std::int32_t t_LogSave_Enable;
  std::int32_t ExcelInstallCheck;
  std::int32_t t_LogSaveFormat;
  std::int32_t t_Excel_soft;
  const char* server;  // empty for none
};

TEST_F(SpreadsheetRun, TheServerFollowsSettingsAndInstallation) {
  constexpr ServerRow kRows[] = {{"Excel only", 1, 1, 1, 2, "Excel"},
                                 {"Ket only, whatever is chosen", 1, 2, 1, 1, "Ket"},
                                 {"both, Excel chosen", 1, 3, 1, 1, "Excel"},
                                 {"both, Ket chosen", 1, 3, 1, 2, "Ket"},
                                 {"none found", 1, 0, 1, 1, ""},
                                 {"text log", 1, 3, 2, 1, ""},
                                 {"log off", 0, 3, 1, 1, ""}};
  for (const ServerRow& row : kRows) {
    form_.device.t_LogSave_Enable = row.t_LogSave_Enable;
    form_.device.ExcelInstallCheck = row.ExcelInstallCheck;
    form_.device.t_LogSaveFormat = row.t_LogSaveFormat;
    form_.device.t_Excel_soft = row.t_Excel_soft;
    memory_.journal.Clear();
    Connect();
    const std::string server = row.server;
    if (server.empty()) {
      EXPECT_THAT(bench_.Noted("create "), IsEmpty()) << row.label;
    } else {
      EXPECT_THAT(bench_.Noted("create "), ElementsAre("create " + server + ".Application"))
          << row.label;
      EXPECT_THAT(bench_.Noted("call " + server + ".Application.Quit"), SizeIs(1)) << row.label;
    }
    EXPECT_EQ(form_.objExcel, nullptr) << row.label;
  }
  EXPECT_THAT(memory_.message_box.Boxes(), IsEmpty());
}

TEST_F(SpreadsheetRun, ARefusedCommentClosesTheServer) {
  form_.device.t_LogSave_subFolder = 1;
  window_.TB_LogComment.Type(u"");
  form_.Bt_Connect_Click();
  EXPECT_THAT(bench_.Noted("create "), SizeIs(1));
  EXPECT_THAT(bench_.Noted("call Excel.Application.Quit"), SizeIs(1));
  EXPECT_EQ(form_.objExcel, nullptr);
}

void ExpectRefusedRun(const Form1Bench& bench) {
  ASSERT_FALSE(bench.memory.message_box.Boxes().empty());
  const auto& box = bench.memory.message_box.Boxes().front();
  EXPECT_EQ(box.kind, platform::memory::MessageBox::Kind::kCritical);
  EXPECT_EQ(box.text, u"ログ出力用の表計算ソフトを起動できません。\r\n接続を終了します。");
  EXPECT_THAT(bench.Noted("canusb_Open"), IsEmpty());
  EXPECT_THAT(bench.Noted("TB_Status.Text"), IsEmpty());
  EXPECT_TRUE(bench.memory.window.Bt_Connect.Enabled());
  EXPECT_FALSE(bench.memory.window.Bt_Disconnect.Enabled());
  EXPECT_FALSE(bench.memory.RTB_MainView.Locked());
  EXPECT_FALSE(bench.memory.window.Pic_Caution.Visible());
  EXPECT_EQ(bench.memory.automation.LiveObjects(), 0);
}

TEST(SpreadsheetServer, ThatIsGoneSinceTheStartEndsTheRunBeforeItBegins) {
  Form1Bench bench;
  bench.Start();
  bench.form.device.t_LogSaveFormat = kLogFormatSpreadsheet;
  bench.form.device.ExcelInstallCheck = 1;
  bench.form.Bt_Connect_Click();
  ExpectRefusedRun(bench);
  EXPECT_THAT(bench.memory.message_box.Boxes(), SizeIs(1)) << "there is nothing to close";
  EXPECT_EQ(bench.form.RxFlag, 0);
}

TEST(SpreadsheetServer, ThatTheSettingsFileDoesNotNameEndsTheRunBeforeItBegins) {
  Form1Bench bench;
  bench.Start();
  bench.form.device.t_LogSaveFormat = kLogFormatSpreadsheet;
  bench.form.device.ExcelInstallCheck = 3;
  bench.form.device.t_Excel_soft = 7;
  bench.form.Bt_Connect_Click();
  ExpectRefusedRun(bench);
}

TEST_F(SpreadsheetRun, AServerThatRefusesAPropertyIsEndedAndTheRunDoesNotStart) {
  for (const std::int32_t failing : {1, 2, 3, 4, 5, 6, 7}) {
    memory_.automation.FailAt(failing);
    memory_.journal.Clear();
    form_.Bt_Connect_Click();
    ExpectRefusedRun(bench_);
    EXPECT_THAT(bench_.Noted("call Excel.Application.Quit"), SizeIs(1)) << failing;
    EXPECT_EQ(form_.objExcel, nullptr);
  }
}

TEST_F(SpreadsheetRun, AServerThatDoesNotQuitIsToldAndLetGo) {
  std::int32_t before = 0;
  Connect({[&] { before = memory_.automation.Operations(); }});
  const std::int32_t quit = memory_.automation.Operations() - before;  // the run's last operation
  Connect({[&] { memory_.automation.FailAt(quit); }});
  const auto& boxes = memory_.message_box.Boxes();
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].kind, platform::memory::MessageBox::Kind::kCritical);
  EXPECT_EQ(boxes[0].title, u"Tolvane Ver1.23");
  EXPECT_EQ(boxes[0].text, u"ログ出力用の表計算ソフトを正常に終了できませんでした。");
  EXPECT_EQ(form_.objExcel, nullptr);
  EXPECT_EQ(memory_.automation.LiveObjects(), 0);
  EXPECT_TRUE(window_.Bt_Connect.Enabled());
}

}  // namespace
}  // namespace tolvane
