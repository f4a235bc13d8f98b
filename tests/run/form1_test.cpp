#include "run/form1.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/run/form1_bench.h"

namespace tolvane {
namespace {

using platform::memory::Narrow;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A machine on which the program waits for its first run, logging off.
class RunControl : public testing::Test {
 protected:
  RunControl() {
    bench_.Start();
    form_.device.t_LogSave_Enable = 0;
  }

  /// A whole run: `steps` happen at one yield after the other, then the user disconnects.
  void Connect(std::vector<std::function<void()>> steps = {}) {
    std::size_t next = 0;
    memory_.events.OnYield([this, &steps, &next] {
      if (next < steps.size()) {
        steps[next++]();
      } else {
        form_.Bt_Disconnect_Click();
      }
    });
    form_.Bt_Connect_Click();
    memory_.events.OnYield({});
  }

  /// Makes the adapter of `vender` the selected one, with everything that a run on it needs.
  void Choose(std::int32_t vender) {
    form_.device.t_select_Vender = vender;
    memory_.IFCan.ports = {{.number = 1}};
    form_.IfCan_d.Interface_CAN_SelectNo = 1;
    memory_.canlib32.channels = {0};
    form_.kvCan_d.KvCAN_SelectNo = 1;
  }

  Form1Bench bench_;
  platform::memory::MemoryPlatform& memory_ = bench_.memory;
  platform::memory::MainWindow& window_ = bench_.memory.window;
  Form1& form_ = bench_.form;
};

// What each control is in each state of the window.

struct ControlRow {
  const char* label;
  std::function<std::string(Form1Bench&)> read;
  const char* idle;
  const char* starting;
  const char* connected;
  const char* disconnecting;
  const char* after;
};

std::string YesNo(bool value) { return value ? "yes" : "no"; }

template <typename Control>
std::function<std::string(Form1Bench&)> EnabledOf(Control platform::memory::MainWindow::*control) {
  return [control](Form1Bench& bench) { return YesNo((bench.memory.window.*control).Enabled()); };
}

std::function<std::string(Form1Bench&)> TextOf(
    platform::memory::TextBox platform::memory::MainWindow::*control) {
  return [control](Form1Bench& bench) { return Narrow((bench.memory.window.*control).Text()); };
}

using WindowOf = platform::memory::MainWindow;

const ControlRow kControls[] = {
    {"Bt_Connect", EnabledOf(&WindowOf::Bt_Connect), "yes", "no", "no", "no", "yes"},
    {"Bt_Disconnect", EnabledOf(&WindowOf::Bt_Disconnect), "no", "yes", "yes", "no", "no"},
    {"Cmb_Serect_Device", EnabledOf(&WindowOf::Cmb_Serect_Device), "yes", "no", "no", "no", "yes"},
    {"menu_common_setting", EnabledOf(&WindowOf::menu_common_setting), "yes", "no", "no", "no",
     "yes"},
    {"menu_opt_function1", EnabledOf(&WindowOf::menu_opt_function1), "yes", "no", "no", "no",
     "yes"},
    {"menu_opt_log1", EnabledOf(&WindowOf::menu_opt_log1), "yes", "no", "no", "no", "yes"},
    {"TB_LogCommentLocked",
     [](Form1Bench& bench) { return YesNo(bench.memory.window.TB_LogComment.Locked()); }, "no",
     "yes", "yes", "yes", "no"},
    {"RTB_MainViewLocked",
     [](Form1Bench& bench) { return YesNo(bench.memory.RTB_MainView.Locked()); }, "no", "yes",
     "yes", "yes", "no"},
    {"Pic_Caution",
     [](Form1Bench& bench) { return YesNo(bench.memory.window.Pic_Caution.Visible()); }, "no",
     "yes", "yes", "yes", "no"},
    {"TB_Protocol", TextOf(&WindowOf::TB_Protocol), "---", "---", "500k bps", "500k bps", "---"},
    {"TB_Status", TextOf(&WindowOf::TB_Status), "", "通信初期処理中", "通信中", "通信中", ""},
};

class ControlStates : public testing::TestWithParam<ControlRow> {};

TEST_P(ControlStates, FollowTheRun) {
  const ControlRow& row = GetParam();
  Form1Bench bench;
  bench.Start();
  bench.form.device.t_LogSave_Enable = 0;
  EXPECT_EQ(row.read(bench), row.idle) << "idle";

  // An adapter that does not open leaves the window in its starting state under the message.
  bench.memory.canusbdrv.open_result = 0;
  bench.memory.message_box.WhileShown(
      [&] { EXPECT_EQ(row.read(bench), row.starting) << "starting"; });
  bench.form.Bt_Connect_Click();
  ASSERT_THAT(bench.memory.message_box.Boxes(), SizeIs(1));
  EXPECT_EQ(row.read(bench), row.after) << "after a failed start";

  bench.memory.canusbdrv.open_result = 1;
  int yields = 0;
  bench.memory.events.OnYield([&] {
    if (++yields == 1) {
      EXPECT_EQ(row.read(bench), row.connected) << "connected";
      bench.form.Bt_Disconnect_Click();
      EXPECT_EQ(row.read(bench), row.disconnecting) << "disconnect clicked";
    }
  });
  bench.form.Bt_Connect_Click();
  EXPECT_EQ(yields, 1);
  EXPECT_EQ(row.read(bench), row.after) << "after the run";
}

INSTANTIATE_TEST_SUITE_P(OfTheWindow, ControlStates, testing::ValuesIn(kControls),
                         [](const auto& row) { return std::string(row.param.label); });

TEST_F(RunControl, ARunTouchesTheWindowInOrder) {
  window_.TB_LogComment.Type(u"試験");
  Connect();
  EXPECT_THAT(memory_.journal.Lines(),
              ElementsAre("Bt_Connect.Enabled = false", "Bt_Disconnect.Enabled = true",
                          "RTB_MainView.Locked = true", "menu_opt_function1.Enabled = false",
                          "menu_common_setting.Enabled = false", "menu_opt_log1.Enabled = false",
                          "Cmb_Serect_Device.Enabled = false", "TB_LogComment.Locked = true",
                          "Pic_Caution.Visible = true", "TB_Status.Text = \"通信初期処理中\"",
                          "TB_Status.SetFocus()", "canusb_Open(\"LAW00001\", \"500\", 0, -1, 1)",
                          "TB_Protocol.Text = \"500k bps\"", "TB_Status.Text = \"通信中\"",
                          "FormBG.TimerBackView.Enabled = true", "timeBeginPeriod(1)",
                          "Bt_Disconnect.Enabled = false", "timeEndPeriod(1)",
                          "TB_Status.Text = \"終了処理中\"", "canusb_Close(1)",
                          "FormBG.TimerBackView.Enabled = false", "TB_Status.Text = \"\"",
                          "TB_Protocol.Text = \"---\"", "RTB_MainView.Locked = false",
                          "TB_Status.SetFocus()", "Bt_Connect.Enabled = true",
                          "Bt_Disconnect.Enabled = false", "menu_opt_function1.Enabled = true",
                          "menu_common_setting.Enabled = true", "menu_opt_log1.Enabled = true",
                          "Cmb_Serect_Device.Enabled = true", "Pic_Caution.Visible = false",
                          "TB_LogComment.Locked = false"));
  EXPECT_EQ(form_.RxFlag, 0);
}

TEST_F(RunControl, WithoutTheOptionNoCautionIsShown) {
  for (const std::int32_t option : {0, 2}) {
    form_.device.t_ViewCaution = option;
    Connect({[this] { EXPECT_FALSE(window_.Pic_Caution.Visible()); }});
  }
  EXPECT_THAT(bench_.Noted("Pic_Caution.Visible = true"), IsEmpty());
}

struct WorkerRow {
  std::int32_t t_Save_ID_DisableMode;
  std::int32_t t_MsgFmtTyp;
  std::int32_t t_msgID_type;
  const char* worker;
};

TEST_F(RunControl, TheWorkerIsTheSameForAllAdapterKinds) {
  constexpr WorkerRow kRows[] = {
      {0, 0, 0, "FormBG"},       {0, 0, 128, "FormBG_29"},  {1, 0, 0, "FormBG2"},
      {1, 0, 128, "FormBG2_29"}, {0, 1, 0, "FormBG2"},      {0, 1, 128, "FormBG2_29"},
      {1, 1, 0, "FormBG2"},      {1, 1, 128, "FormBG2_29"}, {2, 2, 0, "FormBG"},
      {2, 2, 128, "FormBG_29"},  {0, 0, 127, "FormBG"},     {0, 1, -1, "FormBG2"}};
  for (const std::int32_t vender : {kVenderCanusb, kVenderInterface, kVenderKvaser}) {
    Choose(vender);
    for (const WorkerRow& row : kRows) {
      form_.device.t_Save_ID_DisableMode = row.t_Save_ID_DisableMode;
      form_.device.t_MsgFmtTyp = row.t_MsgFmtTyp;
      form_.device.t_msgID_type = row.t_msgID_type;
      memory_.journal.Clear();
      Connect();
      std::vector<std::string> enabled;
      for (const std::string& line : bench_.Noted("FormBG")) {
        if (line.ends_with("Enabled = true")) enabled.push_back(line);
      }
      EXPECT_THAT(enabled, ElementsAre(row.worker + std::string(".TimerBackView.Enabled = true")))
          << "adapter kind " << vender;
    }
  }
}

TEST_F(RunControl, TheAdapterKindDecidesWhichLibraryIsOpened) {
  const std::pair<std::int32_t, const char*> kRows[] = {{kVenderCanusb, "canusb_Open"},
                                                        {kVenderInterface, "CanOpenPort"},
                                                        {kVenderKvaser, "canOpenChannel"}};
  for (const auto& [vender, open] : kRows) {
    Choose(vender);
    memory_.journal.Clear();
    Connect({[this] { EXPECT_EQ(form_.RxFlag, 1); }});
    for (const auto& [other, other_open] : kRows) {
      EXPECT_THAT(bench_.Noted(other_open), SizeIs(other == vender ? 1 : 0)) << open;
    }
  }
}

TEST_F(RunControl, WithoutAnAdapterNothingIsCalledAndRxFlagStays) {
  for (const std::int32_t vender : {kVenderNone, 4, -1}) {
    form_.device.t_select_Vender = vender;
    form_.RxFlag = 5;
    memory_.journal.Clear();
    form_.Bt_Connect_Click();
    EXPECT_EQ(form_.RxFlag, 5);
    EXPECT_EQ(window_.TB_Status.Text(), u"");
    EXPECT_TRUE(window_.Bt_Connect.Enabled());
    EXPECT_THAT(bench_.Noted("canusb_"), IsEmpty());
    EXPECT_THAT(bench_.Noted("timeBeginPeriod"), IsEmpty());
  }
}

// The comment.

TEST_F(RunControl, TheCommentIsTakenTrimmedAndStaysInItsBox) {
  window_.TB_LogComment.Type(u"  二 語  ");
  Connect();
  EXPECT_EQ(form_.device.t_LogComment, u"二 語");
  EXPECT_EQ(window_.TB_LogComment.Text(), u"  二 語  ");
}

TEST_F(RunControl, AFullWidthBlankBelongsToTheComment) {
  window_.TB_LogComment.Type(u"　走行　");
  Connect();
  EXPECT_EQ(form_.device.t_LogComment, u"　走行　");
}

TEST_F(RunControl, OfALongCommentTheFirst50UnitsAreKept) {
  window_.TB_LogComment.Type(u" " + String(50, u'あ') + String(10, u'い'));
  Connect();
  EXPECT_EQ(form_.device.t_LogComment, String(50, u'あ'));
  EXPECT_EQ(window_.TB_LogComment.Text().size(), 61u);
}

TEST_F(RunControl, TheCutCountsUnitsNotCharacters) {
  window_.TB_LogComment.Type(String(49, u'a') + u"\U0001F697");  // 51 units, the last two a pair
  Connect();
  EXPECT_EQ(form_.device.t_LogComment, String(49, u'a') + u'\xD83D');
}

TEST_F(RunControl, AnEmptyCommentIsFineWithoutSubfolders) {
  window_.TB_LogComment.Type(u"   ");
  Connect();
  EXPECT_EQ(form_.device.t_LogComment, u"");
  EXPECT_THAT(bench_.Noted("canusb_Open"), SizeIs(1));
}

TEST_F(RunControl, AnEmptyCommentIsRefusedWithSubfolders) {
  form_.device.t_LogSave_subFolder = 1;
  form_.device.t_LogComment = u"前回";
  form_.RxFlag = 5;
  window_.TB_LogComment.Type(u"   ");
  form_.Bt_Connect_Click();
  const auto& boxes = memory_.message_box.Boxes();
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].kind, platform::memory::MessageBox::Kind::kCritical);
  EXPECT_EQ(boxes[0].title, u"Tolvane Ver1.23");
  EXPECT_EQ(boxes[0].text,
            u"「コメントをサブフォルダにして保存する」が有効になっています。\r\n"
            u"コメントを記入して下さい。");
  EXPECT_EQ(form_.RxFlag, 5) << "no run was wanted";
  EXPECT_EQ(form_.device.t_LogComment, u"前回");
  EXPECT_THAT(bench_.Noted("canusb_Open"), IsEmpty());
  EXPECT_THAT(bench_.Noted("TB_Status.Text"), IsEmpty()) << "its text stands as it was";
  EXPECT_TRUE(window_.Bt_Connect.Enabled());
  EXPECT_FALSE(memory_.RTB_MainView.Locked());
}

TEST_F(RunControl, TheWindowStaysWhileTheCommentIsAskedFor) {
  form_.device.t_LogSave_subFolder = 1;
  window_.TB_LogComment.Type(u"");
  memory_.message_box.WhileShown([this] { form_.menu_file_close_Click(); });
  form_.Bt_Connect_Click();
  EXPECT_THAT(bench_.Noted("Form1.Unload"), SizeIs(1));
  EXPECT_THAT(bench_.Noted("FormHelp.Unload"), IsEmpty());
}

// The spreadsheet server.

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
  EXPECT_EQ(boxes[0].text, u"ログ出力用の表計算ソフトを正常に終了できませんでした。");
  EXPECT_EQ(form_.objExcel, nullptr);
  EXPECT_EQ(memory_.automation.LiveObjects(), 0);
  EXPECT_TRUE(window_.Bt_Connect.Enabled());
}

// What a run leaves in the status box.

TEST_F(RunControl, ABoardThatFailsToCloseIsToldInTheStatusBox) {
  Choose(kVenderInterface);
  memory_.IFCan.close_status = form_.IfCan_u.IFCAN_ERROR_USB_TIMEOUT;
  Connect();
  EXPECT_EQ(window_.TB_Status.Text(), u"USB communicate Timeout.");
}

TEST_F(RunControl, AnUnknownStatusOfABoardLeavesTheBoxEmpty) {
  Choose(kVenderInterface);
  memory_.IFCan.close_status = 77;
  Connect();
  EXPECT_EQ(window_.TB_Status.Text(), u"");
}

TEST_F(RunControl, ABoardThatDoesNotOpenIsToldInTheStatusBox) {
  Choose(kVenderInterface);
  memory_.IFCan.get_config_status = form_.IfCan_u.IFCAN_ERROR_ACCESS_DENIED;
  form_.Bt_Connect_Click();
  EXPECT_EQ(window_.TB_Status.Text(), u"The device handle is invalid.");
  EXPECT_EQ(form_.RxFlag, 0);
}

TEST_F(RunControl, ARateThatTheBoardLacksLeavesTheBoxEmpty) {
  Choose(kVenderInterface);
  form_.device.t_bitRate = 7;
  form_.Bt_Connect_Click();
  EXPECT_THAT(memory_.message_box.Boxes(), SizeIs(1));
  EXPECT_THAT(bench_.Noted("CanOpenPort"), IsEmpty());
  EXPECT_EQ(window_.TB_Status.Text(), u"");
}

// The other handlers.

TEST_F(RunControl, DisconnectOnlyEndsTheLoopAndDisablesItsButton) {
  form_.RxFlag = 1;
  form_.Bt_Disconnect_Click();
  EXPECT_EQ(form_.RxFlag, 0);
  EXPECT_THAT(memory_.journal.Lines(), ElementsAre("Bt_Disconnect.Enabled = false"));
}

TEST_F(RunControl, ClearEmptiesTheViewAlsoDuringARun) {
  memory_.RTB_MainView.Text(u"notes");
  Connect({[this] {
    form_.Bt_ViewClear_Click();
    EXPECT_EQ(memory_.RTB_MainView.Text(), u"");
    EXPECT_EQ(form_.RxFlag, 1);
  }});
}

TEST_F(RunControl, TheSnapshotButtonSavesWhatIsShown) {
  form_.device.t_SaveFormat = 2;
  memory_.RTB_MainView.Text(u"page");
  form_.Bt_SaveFile_Click();
  EXPECT_EQ(memory_.files.Bytes(u"C:\\Tolvane\\KS26010509-001.txt"), "page");
}

TEST_F(RunControl, SelectingTheSameLineDoesNothing) {
  window_.Cmb_Serect_Device.ListIndex(0);
  EXPECT_THAT(bench_.Noted("canusb_Open"), IsEmpty());
}

TEST(DeviceList, SelectingAnotherLineSelectsItsAdapter) {
  Form1Bench bench;
  bench.memory.IFCan.ports = {{.number = 4, .information = {36, 0, 4852, 513, 1, 0, 0, 2, 0}}};
  bench.Start();
  bench.memory.window.Cmb_Serect_Device.ListIndex(1);
  EXPECT_EQ(bench.form.device.t_CmbBOX_device_SelectNo, 2);
  EXPECT_EQ(bench.form.device.t_select_Vender, kVenderInterface);
  EXPECT_EQ(bench.memory.window.TB_ODB_Hard_Version.Text(), u"Interface CBI-4852 RevID:1 ch:2");
  bench.memory.window.Cmb_Serect_Device.ListIndex(0);
  EXPECT_EQ(bench.form.device.t_select_Vender, kVenderCanusb);
}

TEST_F(RunControl, ClosingIsRefusedByEveryWorkerAndTheRunGoesOn) {
  for (const std::int32_t type : {0, kMsgIdType29Bit}) {
    for (const std::int32_t mode : {0, 1}) {
      form_.device.t_msgID_type = type;
      form_.device.t_Save_ID_DisableMode = mode;
      memory_.journal.Clear();
      int passes = 0;
      Connect({[this] { form_.menu_file_close_Click(); },
               [this, &passes] {
                 ++passes;
                 EXPECT_EQ(form_.RxFlag, 1);
                 EXPECT_TRUE(form_.ClosingIsRefused());
               }});
      EXPECT_EQ(passes, 1);
      EXPECT_THAT(bench_.Noted("FormHelp.Unload"), IsEmpty());
      EXPECT_FALSE(bench_.Wrote(u"config.dat"));
    }
  }
  EXPECT_FALSE(form_.ClosingIsRefused());
}

// Whole runs.

platform::CanusbMessage Frame(std::int32_t id, std::int32_t timestamp, std::uint8_t first_byte) {
  return {.id = id,
          .timestamp = timestamp,
          .flags = 0,
          .len = 8,
          .data = {first_byte, 2, 3, 4, 5, 6, 7, 0xF8}};
}

TEST_F(RunControl, AWholeRunLeavesItsLastPage) {
  memory_.canusbdrv.frames.Play(
      {Frame(0x1A0, 1000, 1), Frame(0x0F, 1050, 9), Frame(0x1A0, 1100, 0x11)});
  Connect({[this] { memory_.FormBG.Tick(); }});
  const String page =
      u"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n"
      u"00F  8   09 02 03 04 05 06 07 F8   ----ms\r\n"
      u"1A0  8   11 02 03 04 05 06 07 F8   100ms\r\n";
  EXPECT_EQ(memory_.RTB_MainView.Text(), page) << Narrow(memory_.RTB_MainView.Text());
  EXPECT_EQ(memory_.RTB_MainView.Swaps(), 1);

  // The next run begins by clearing.
  memory_.canusbdrv.frames.Play({Frame(0x7FF, 5, 1)});
  Connect({[this] { memory_.FormBG.Tick(); }});
  EXPECT_EQ(memory_.RTB_MainView.Text(),
            u"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n"
            u"7FF  8   01 02 03 04 05 06 07 F8   ----ms\r\n");
}

TEST_F(RunControl, AfterTheRunThePageCanBeEditedAndKept) {
  memory_.canusbdrv.frames.Play({Frame(0x123, 1, 1)});
  Connect({[this] { memory_.FormBG.Tick(); }});
  memory_.RTB_MainView.SelStart(0);
  memory_.RTB_MainView.UserTypes(u"# ");
  const String kept = memory_.RTB_MainView.Text();
  EXPECT_TRUE(kept.starts_with(u"# ID  DLC"));
  form_.menu_file_close_Click();

  Form1Bench next;
  next.memory.files.AddFile(u"C:\\Tolvane\\lglist.dat",
                            *memory_.files.Bytes(u"C:\\Tolvane\\lglist.dat"));
  next.Start();
  EXPECT_EQ(next.memory.RTB_MainView.Text(), kept);
}

TEST_F(RunControl, APulledAdapterKeepsTheRunUntilTheUserDisconnects) {
  memory_.canusbdrv.frames.Play({Frame(0x123, 1, 1)});
  memory_.canusbdrv.empty_read_result = -4;
  Connect({[this] { EXPECT_EQ(window_.TB_Status.Text(), u"通信中"); },
           [this] { EXPECT_EQ(form_.RxFlag, 1); }});
  EXPECT_THAT(memory_.message_box.Boxes(), IsEmpty());
}

TEST_F(RunControl, ATextLogOfTheRunStandsInTheProgramsFolder) {
  form_.device.t_LogSave_Enable = 1;
  memory_.canusbdrv.frames.Play({Frame(0x123, 1, 1)});
  Connect();
  EXPECT_TRUE(bench_.Wrote(u"KL26010509-001.csv"));
}

TEST_F(RunControl, OtherKindsShowTheirPagesToo) {
  Choose(kVenderInterface);
  memory_.IFCan.frames.Play(
      {{.dlc = 1, .word2 = 0, .id = 0x10, .data = {7, 0, 0, 0, 0, 0, 0, 0}, .timestamp = 0}});
  Connect({[this] { memory_.FormBG.Tick(); }});
  EXPECT_TRUE(memory_.RTB_MainView.Text().find(u"010  1   07") != String::npos);

  Choose(kVenderKvaser);
  memory_.canlib32.frames.Play(
      {{.id = 0x20, .msg = {8, 0, 0, 0, 0, 0, 0, 0}, .dlc = 1, .flag = 2, .time = 0}});
  Connect({[this] { memory_.FormBG.Tick(); }});
  EXPECT_TRUE(memory_.RTB_MainView.Text().find(u"020  1   08") != String::npos);
}

}  // namespace
}  // namespace tolvane
