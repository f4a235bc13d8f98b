#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/utf8.h"
#include "tests/run/control/run_control.h"

namespace tolvane {
namespace {

using testing::IsEmpty;

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
  EXPECT_EQ(memory_.RTB_MainView.Text(), page) << ToUtf8(memory_.RTB_MainView.Text());
  EXPECT_EQ(memory_.RTB_MainView.Swaps(), 1);

  // The next run begins by clearing.
  memory_.canusbdrv.frames.Play({Frame(0x7FF, 5, 1)});
  Connect({[this] { memory_.FormBG.Tick(); }});
  EXPECT_EQ(memory_.RTB_MainView.Text(),
            u"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n"
            u"7FF  8   01 02 03 04 05 06 07 F8   ----ms\r\n");
}

TEST_F(RunControl, TheNextTickWritesAClearedPageAnew) {
  memory_.canusbdrv.frames.Play({Frame(0x123, 1, 1)});
  Connect({[this] {
    memory_.FormBG.Tick();
    const String page = memory_.RTB_MainView.Text();
    form_.Bt_ViewClear_Click();
    EXPECT_EQ(memory_.RTB_MainView.Text(), u"");
    memory_.FormBG.Tick();
    EXPECT_EQ(memory_.RTB_MainView.Text(), page);
    EXPECT_FALSE(page.empty());
  }});
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

TEST_F(RunControl, SettingsAndPageAreWrittenAtTheEndOfTheProgramAlone) {
  form_.device.t_bitRate = 7;
  memory_.canusbdrv.frames.Play({Frame(0x123, 1, 1)});
  Connect({[this] { memory_.FormBG.Tick(); }});
  for (const StringView file : {u"config.dat", u"lglist.dat"}) EXPECT_FALSE(bench_.Wrote(file));
  form_.menu_file_close_Click();
  for (const StringView file : {u"config.dat", u"lglist.dat"}) EXPECT_TRUE(bench_.Wrote(file));
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

/// Two frames of ID 10 on one of the three adapters: 100 ms apart by its timer, 250 ms by the
/// computer's clock.
class RunOfTwoClocks : public RunControl, public testing::WithParamInterface<std::int32_t> {
 protected:
  RunOfTwoClocks() {
    Choose(GetParam());
    form_.device.t_LogSave_Enable = 1;
    form_.device.t_dividend_ratio = 3.0;
    memory_.qxt100.Now(5000);
  }

  void Play(std::int32_t time) {
    memory_.canusbdrv.frames.Play({Frame(0x10, time, 1)});
    memory_.IFCan.frames.Play(
        {{.dlc = 0, .word2 = 0, .id = 0x10, .data = {}, .timestamp = time * 1000}});
    memory_.canlib32.frames.Play({{.id = 0x10, .msg = {}, .dlc = 0, .flag = 2, .time = time}});
  }

  void Run() {
    Play(1000);
    Connect({[this] {
               memory_.qxt100.Advance(250);
               Play(1100);
             },
             [this] { memory_.FormBG.Tick(); }});
  }

  void ExpectCycle(StringView cycle) {
    EXPECT_TRUE(memory_.RTB_MainView.Text().ends_with(u"   " + String(cycle) + u"ms\r\n"))
        << ToUtf8(memory_.RTB_MainView.Text());
    const std::string log =
        memory_.files.Bytes(u"C:\\Tolvane\\KL26010509-001.csv").value_or("no file");
    EXPECT_NE(log.find("\r\n         0 , 010 , "), std::string::npos) << log;
    EXPECT_NE(log.find("\r\n       " + ToUtf8(cycle) + " , 010 , "), std::string::npos) << log;
  }
};

TEST_P(RunOfTwoClocks, OfTheAdapterShowsAndLogsItsTimeStretchedByTheRatio) {
  Run();
  ExpectCycle(u"300");
}

TEST_P(RunOfTwoClocks, OfWindowsShowsAndLogsTheComputersTimeAsItIs) {
  form_.device.t_Timer_Mode = 1;
  Run();
  ExpectCycle(u"250");
}

INSTANTIATE_TEST_SUITE_P(Adapters, RunOfTwoClocks,
                         testing::Values(kVenderCanusb, kVenderInterface, kVenderKvaser));

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
