// Handlers within handlers: what the user, the timer and the system do in the yields of a tick and
// of a flush, for each of the four workers. A yield of the receive loop itself has depth 1; one of
// a tick that came there has depth 2.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/utf8.h"
#include "tests/run/control/run_control.h"

namespace tolvane {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

struct WorkerRow {
  const char* name;
  std::int32_t t_msgID_type;
  std::int32_t t_Save_ID_DisableMode;
  platform::memory::Timer platform::memory::MemoryPlatform::*timer;
};

constexpr WorkerRow kWorkers[] = {
    {"FormBG", 0, 0, &platform::memory::MemoryPlatform::FormBG},
    {"FormBG2", 0, 1, &platform::memory::MemoryPlatform::FormBG2},
    {"FormBG29", kMsgIdType29Bit, 0, &platform::memory::MemoryPlatform::FormBG_29},
    {"FormBG229", kMsgIdType29Bit, 1, &platform::memory::MemoryPlatform::FormBG2_29}};

class Nesting : public RunControl, public testing::WithParamInterface<WorkerRow> {
 protected:
  Nesting() {
    form_.device.t_msgID_type = GetParam().t_msgID_type;
    form_.device.t_Save_ID_DisableMode = GetParam().t_Save_ID_DisableMode;
    form_.device.t_LogSave_Enable = 1;
    Arrive(0x1A0);
  }

  /// A complete run; `world` is given the depth of each of its yields. One that never disconnects
  /// ends at yield 1,000 with a failure.
  void Run(std::function<void(int depth)> world) {
    int depth = 0;
    const std::int64_t end = memory_.events.Yields() + 1000;
    memory_.events.OnYield([&, world = std::move(world)] {
      ++depth;
      world(depth);
      --depth;
      if (memory_.events.Yields() < end || form_.RxFlag == 0) return;
      ADD_FAILURE() << "nothing ends the run";
      form_.RxFlag = 0;
    });
    bench_.Click(&Form1::Bt_Connect_Click);
    memory_.events.OnYield({});
  }

  /// Twice, as FormBG2 shows no line before.
  void Arrive(std::int32_t id, std::int64_t times = 2) {
    const std::uint8_t flags = GetParam().t_msgID_type == kMsgIdType29Bit ? 128 : 0;
    memory_.canusbdrv.frames.Play(
        {{.id = id, .timestamp = 1, .flags = flags, .len = 1, .data = {0x5A}}}, times);
  }
  void Tick() { Timer().Tick(); }
  void Disconnect() { bench_.Click(&Form1::Bt_Disconnect_Click); }
  [[nodiscard]] platform::memory::Timer& Timer() { return memory_.*GetParam().timer; }
  [[nodiscard]] std::string Page() const { return ToUtf8(memory_.RTB_MainView.Text()); }
  [[nodiscard]] std::string Log(int number) {
    const String name = u"KL26010509-00" + String(1, static_cast<char16_t>(u'0' + number));
    return memory_.files.Bytes(bench_.Path(kFolder, name + u".csv")).value_or("no file");
  }
  void TakeName(int number) {
    const String name = u"KL26010509-00" + String(1, static_cast<char16_t>(u'0' + number));
    bench_.Install(kFolder, name + u".csv");
  }
  [[nodiscard]] std::size_t LoggedFrames(const std::string& log) const {
    std::size_t found = 0;
    for (std::size_t at = 0; (at = log.find("1A0 , 1 ,  5A\r\n", at)) != std::string::npos; ++at) {
      ++found;
    }
    return found;
  }
};

TEST_P(Nesting, ADisconnectWithinATickEndsTheRunBehindTheWholeTick) {
  Run([this](int depth) { depth == 1 ? Tick() : Disconnect(); });
  EXPECT_EQ(memory_.RTB_MainView.Swaps(), 1);
  EXPECT_THAT(Page(), HasSubstr("1A0  1   5A"));
  EXPECT_FALSE(Timer().Enabled());
  EXPECT_THAT(bench_.Noted("TB_Status.Text = \"終了処理中\""), SizeIs(1));
  EXPECT_EQ(LoggedFrames(Log(1)), 2U);
  EXPECT_FALSE(form_.ClosingIsRefused());
}

TEST_P(Nesting, ATickWithinATickIsDropped) {
  int ticks = 0;
  Run([&](int depth) {
    EXPECT_LE(depth, 2);
    if (depth == 2) {
      ++ticks;
      EXPECT_FALSE(Timer().Enabled());
    }
    memory_.RTB_MainView.Swaps() == 0 ? Tick() : Disconnect();
  });
  EXPECT_GE(ticks, 1);
  EXPECT_EQ(memory_.RTB_MainView.Swaps(), 1);
}

TEST_P(Nesting, AClickWithinATickFindsTheTimerOff) {
  Run([this](int depth) {
    if (depth == 1) return Tick();
    bench_.Click(&Form1::RTB_MainView_ContextMenu);
    bench_.Click(&Form1::RTB_MainView_GotFocus);
    Disconnect();
  });
  EXPECT_GE(bench_.Noted("menu_View.PopUp").size(), 1U);
  // Those of the run's start and end.
  EXPECT_THAT(bench_.Noted("TB_Status.SetFocus"), SizeIs(2));
}

TEST_P(Nesting, WhatArrivesWithinATickIsReadBehindIt) {
  std::vector<std::string> pages;
  bool arrived = false;
  Run([&](int depth) {
    if (depth == 2) {
      if (!std::exchange(arrived, true)) Arrive(0x1A1);
      return;
    }
    if (pages.size() == 2) return Disconnect();
    Tick();
    pages.push_back(Page());
  });
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(pages[0], Not(HasSubstr("1A1")));
  EXPECT_THAT(pages[1], HasSubstr("1A1  1   5A"));
}

TEST_P(Nesting, ClosingIsRefusedWithinATickAndWithinTheLastFlush) {
  TakeName(1);
  int within_ticks = 0;
  int within_flushes = 0;
  Run([&](int depth) {
    if (depth == 1 && form_.RxFlag == 1)
      return memory_.RTB_MainView.Swaps() == 0 ? Tick() : Disconnect();
    ++(depth == 2 ? within_ticks : within_flushes);
    bench_.Click(&Form1::menu_file_close_Click);
  });
  EXPECT_GE(within_ticks, 1);
  EXPECT_EQ(within_flushes, 1);
  EXPECT_THAT(bench_.Noted("Form2.Unload"), IsEmpty());
  EXPECT_FALSE(bench_.Wrote(u"config.dat"));
  EXPECT_EQ(LoggedFrames(Log(2)), 2U);
}

TEST_P(Nesting, AClearedPageStandsAgainBehindTheTick) {
  std::string before;
  Run([&](int depth) {
    if (depth == 1) return memory_.RTB_MainView.Swaps() < 2 ? Tick() : Disconnect();
    if (memory_.RTB_MainView.Swaps() == 0 || !before.empty()) return;
    before = Page();
    bench_.Click(&Form1::Bt_ViewClear_Click);
    EXPECT_EQ(Page(), "");
  });
  EXPECT_THAT(before, HasSubstr("1A0  1   5A"));
  EXPECT_THAT(Page(), HasSubstr("1A0  1   5A"));
}

TEST_P(Nesting, ASnapshotWithinATickHoldsThePageThatIsSeen) {
  form_.device.t_SaveFormat = 2;
  std::string seen;
  Run([&](int depth) {
    if (depth == 1) return memory_.RTB_MainView.Swaps() < 2 ? Tick() : Disconnect();
    if (memory_.RTB_MainView.Swaps() == 0 || !seen.empty()) return;
    seen = Page();
    Arrive(0x1A1);
    bench_.Click(&Form1::Bt_SaveFile_Click);
  });
  EXPECT_THAT(seen, HasSubstr("1A0  1   5A"));
  EXPECT_EQ(memory_.files.Bytes(u"C:\\Tolvane\\KS26010509-001.txt"), seen);
}

TEST_P(Nesting, ATickInTheLastFlushShowsTheLastFramesAndStaysTheLast) {
  TakeName(1);
  TakeName(2);
  Run([&](int depth) {
    if (depth == 2) return;
    form_.RxFlag == 1 ? Disconnect() : Tick();
  });
  EXPECT_EQ(memory_.RTB_MainView.Swaps(), 1);
  EXPECT_THAT(Page(), HasSubstr("1A0  1   5A"));
  EXPECT_EQ(LoggedFrames(Log(3)), 2U);
  EXPECT_FALSE(Timer().Enabled());
}

TEST_P(Nesting, ADisconnectInTheFlushOfAFullChannelLosesNothing) {
  constexpr std::size_t kFullChannel = 20'001;
  TakeName(1);
  Arrive(0x1A0, kFullChannel + 1);
  Run([&](int) { Disconnect(); });
  EXPECT_EQ(LoggedFrames(Log(2)), kFullChannel);
  EXPECT_EQ(LoggedFrames(Log(3)), 0U);
  EXPECT_FALSE(memory_.canusbdrv.frames.Empty()) << "the frame behind it was never accepted";
}

TEST_P(Nesting, ATickInTheFlushOfAFullChannelIsOneOfMany) {
  TakeName(1);
  Arrive(0x1A0, 20'001);
  bool in_flush = false;
  Run([&](int depth) {
    if (depth == 2) return;
    if (std::exchange(in_flush, true))
      return memory_.RTB_MainView.Swaps() < 2 ? Tick() : Disconnect();
    Tick();
    EXPECT_EQ(memory_.RTB_MainView.Swaps(), 1);
    EXPECT_TRUE(Timer().Enabled()) << "the run goes on";
    EXPECT_EQ(Log(2), "no file");
  });
  EXPECT_EQ(memory_.RTB_MainView.Swaps(), 2);
  EXPECT_EQ(LoggedFrames(Log(2)), 20'001U);
}

TEST_P(Nesting, TheSessionEndsWithinATick) {
  Run([&](int depth) {
    if (depth == 1) return Tick();
    if (form_.RxFlag == 0) return;
    form_.Session_Ends();
    EXPECT_EQ(LoggedFrames(Log(1)), 2U);
    EXPECT_TRUE(bench_.Wrote(u"config.dat"));
  });
  EXPECT_EQ(Log(2), "no file");
  EXPECT_FALSE(form_.ClosingIsRefused());
}

TEST_P(Nesting, TheSessionEndsWithinAFlush) {
  TakeName(1);
  bool ended = false;
  Run([&](int) {
    if (form_.RxFlag == 1) return Disconnect();
    form_.Session_Ends();
    EXPECT_EQ(LoggedFrames(Log(2)), 2U) << "the process may be ended now";
    ended = true;
  });
  EXPECT_TRUE(ended);
  EXPECT_FALSE(form_.ClosingIsRefused());
}

TEST_P(Nesting, WhatComesInAnAutomationCallWaitsForTheYield) {
  form_.device.t_LogSaveFormat = kLogFormatSpreadsheet;
  form_.device.ExcelInstallCheck = 1;
  memory_.automation.Register(u"Excel.Application", 16);
  memory_.RTB_MainView.Text(u"notes");
  bool clicked = false;
  const auto in_the_call = [&] {
    Tick();
    if (!std::exchange(clicked, true)) bench_.Click(&Form1::Bt_ViewClear_Click);
    EXPECT_EQ(Page(), "notes") << "a tick or a click passed the gate";
  };
  bool yielded = false;
  Run([&](int) {
    if (form_.RxFlag == 1) {
      Disconnect();
      memory_.automation.WhileCalled(in_the_call);
      return;
    }
    if (std::exchange(yielded, true)) return;
    memory_.automation.WhileCalled({});
    EXPECT_EQ(Page(), "") << "the click comes in the first yield of the tick that waited before it";
  });
  EXPECT_TRUE(clicked);
  EXPECT_TRUE(yielded);
  EXPECT_THAT(Page(), HasSubstr("1A0  1   5A"));
  EXPECT_EQ(memory_.RTB_MainView.Swaps(), 1);
}

INSTANTIATE_TEST_SUITE_P(Workers, Nesting, testing::ValuesIn(kWorkers),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tolvane
