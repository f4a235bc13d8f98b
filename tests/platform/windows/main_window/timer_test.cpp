#include "platform/windows/main_window/timer.h"

#include <gtest/gtest.h>

#include "tests/platform/windows/system/pump.h"

namespace tolvane::platform::windows {
namespace {

constexpr std::int32_t kInterval = 30;  // ms

class WorkerTimer : public testing::Test {
 protected:
  WorkerTimer() {
    timer_.OnTick([this] { ++ticks_; });
  }

  /// Yields as long as a timer of the same interval takes to tick some times.
  void PumpWhileAnotherTicks() {
    WorkerWindow another(gate_, GetModuleHandleW(nullptr), kInterval);
    int ticks = 0;
    another.OnTick([&ticks] { ++ticks; });
    another.Enabled(true);
    EXPECT_TRUE(PumpUntil(loop_, [&ticks] { return ticks >= 3; }));
  }

  /// Returns once the thread's queue has a tick, outside of any yield.
  static void AwaitDueTick() {
    const ULONGLONG deadline = GetTickCount64() + 5000;
    MSG message;
    while (!PeekMessageW(&message, nullptr, WM_TIMER, WM_TIMER, PM_NOREMOVE)) {
      ASSERT_LT(GetTickCount64(), deadline) << "no tick is due";
    }
  }

  EventGate gate_;
  WindowsEventLoop loop_{gate_};
  WorkerWindow timer_{gate_, GetModuleHandleW(nullptr), kInterval};
  int ticks_ = 0;
};

TEST_F(WorkerTimer, StartsDisabledAndThenTicksAgainAndAgain) {
  EXPECT_FALSE(timer_.Enabled());
  EXPECT_EQ(timer_.Interval(), kInterval);
  PumpWhileAnotherTicks();
  EXPECT_EQ(ticks_, 0);
  timer_.Enabled(true);
  EXPECT_TRUE(PumpUntil(loop_, [this] { return ticks_ >= 3; }));
}

TEST_F(WorkerTimer, DisabledDropsTheTickThatIsDue) {
  timer_.Enabled(true);
  ASSERT_NO_FATAL_FAILURE(AwaitDueTick());
  timer_.Enabled(false);
  PumpWhileAnotherTicks();
  EXPECT_EQ(ticks_, 0);
}

TEST_F(WorkerTimer, EnablingAgainStartsAWholeNewPeriod) {
  timer_.Enabled(true);
  ASSERT_NO_FATAL_FAILURE(AwaitDueTick());
  timer_.Enabled(false);
  timer_.Enabled(true);
  loop_.YieldToEvents();
  EXPECT_EQ(ticks_, 0) << "the old period's tick came through";
  EXPECT_TRUE(PumpUntil(loop_, [this] { return ticks_ > 0; }));
}

TEST_F(WorkerTimer, WaitsForTheYieldWhenSomethingElsePumpsDuringAHandler) {
  timer_.Enabled(true);
  gate_.Deliver([this] {
    // What an automation call does: hands out messages without opening the gate.
    const ULONGLONG end = GetTickCount64() + 5 * kInterval;
    MSG message;
    while (GetTickCount64() < end) {
      if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    EXPECT_EQ(ticks_, 0);
    loop_.YieldToEvents();
    EXPECT_GE(ticks_, 1);
    EXPECT_LE(ticks_, 2) << "held ticks must not pile up";
  });
}

TEST_F(WorkerTimer, ATickHeldFromBeforeAStopIsDroppedAfterANewStart) {
  timer_.Enabled(true);
  gate_.Deliver([this] {
    ASSERT_NO_FATAL_FAILURE(AwaitDueTick());
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, timer_.Hwnd(), WM_TIMER, WM_TIMER, PM_REMOVE));
    DispatchMessageW(&message);  // now it waits at the gate
    timer_.Enabled(false);
    timer_.Enabled(true);
  });
  gate_.DeliverWaiting();
  EXPECT_EQ(ticks_, 0) << "the old period's tick came through";
  EXPECT_TRUE(PumpUntil(loop_, [this] { return ticks_ > 0; }));
}

TEST_F(WorkerTimer, NeverTicksAgainOnceItsWindowIsGone) {
  timer_.Enabled(true);
  timer_.Destroy();
  EXPECT_FALSE(timer_.Enabled());
  timer_.Enabled(true);
  EXPECT_FALSE(timer_.Enabled());
  PumpWhileAnotherTicks();
  EXPECT_EQ(ticks_, 0);
}

}  // namespace
}  // namespace tolvane::platform::windows
