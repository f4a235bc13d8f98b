#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "platform/utf8.h"
#include "tests/run/control/form1_bench.h"

namespace tolvane {
namespace {

using testing::SizeIs;

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
  return [control](Form1Bench& bench) { return ToUtf8((bench.memory.window.*control).Text()); };
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

// The tick stops its timer, but its change of the selection is reported in the next yield.
TEST(ControlStates, TheMenuFitsAfterARunThatTookASelectionAway) {
  Form1Bench bench;
  bench.Start();
  bench.form.device.t_LogSave_Enable = 0;
  platform::memory::RichTextView& view = bench.memory.RTB_MainView;
  view.Text(u"notes");
  view.SelLength(3);
  bench.form.RTB_MainView_SelChange();
  const auto& window = bench.memory.window;
  ASSERT_TRUE(window.menu_View_Ctrl_C.Enabled());
  bool inside = false;
  bench.memory.events.OnYield([&] {
    if (std::exchange(inside, true)) return;
    bench.memory.FormBG.Tick();
    bench.Click(&Form1::RTB_MainView_SelChange);
    EXPECT_TRUE(window.menu_View_Ctrl_C.Enabled()) << "the timer of FormBG was not looked at";
    bench.Click(&Form1::Bt_Disconnect_Click);
    inside = false;
  });
  bench.Click(&Form1::Bt_Connect_Click);
  EXPECT_FALSE(window.menu_View_Ctrl_C.Enabled());
  EXPECT_TRUE(window.menu_View_All_Copy.Enabled());
}

TEST(ControlStates, ARunWithoutAChangeOfTheSelectionLeavesTheMenu) {
  Form1Bench bench;
  bench.Start();
  bench.form.device.t_LogSave_Enable = 0;
  bench.memory.events.OnYield([&] {
    bench.memory.FormBG.Tick();
    bench.form.Bt_Disconnect_Click();
  });
  bench.form.Bt_Connect_Click();
  EXPECT_FALSE(bench.memory.RTB_MainView.Text().empty());
  EXPECT_FALSE(bench.memory.window.menu_View_All_Copy.Enabled());
}

}  // namespace
}  // namespace tolvane
