// Run control as a room: this test is linked with it and what it uses, without the shell above.
#include <gtest/gtest.h>

#include "platform/memory/memory_platform.h"
#include "run/control/form1.h"

namespace tolvane {
namespace {

TEST(RunControlAlone, BeginsARunEndsItAndPutsTheMenuRight) {
  platform::memory::MemoryPlatform memory;
  Form1 form(memory.Platform(), memory.MainWindow(), u"C:\\Tolvane");
  form.device.Param_ALL_Clear();
  form.device.t_select_Vender = kVenderCanusb;
  form.device.t_LogSave_Enable = 0;
  memory.window.menu_View_Date.Enabled(false);
  int yields = 0;
  memory.events.OnYield([&] {
    ++yields;
    form.RTB_MainView_SelChange();
    EXPECT_FALSE(memory.window.menu_View_Date.Enabled()) << "the run's timer was not looked at";
    form.Bt_Disconnect_Click();
  });
  form.Bt_Connect_Click();
  EXPECT_EQ(yields, 1);
  EXPECT_TRUE(memory.window.Bt_Connect.Enabled());
  EXPECT_TRUE(memory.window.menu_View_Date.Enabled());
}

}  // namespace
}  // namespace tolvane
