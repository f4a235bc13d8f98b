#include "platform/windows/system/event_loop.h"

#include <gtest/gtest.h>

namespace tolvane::platform::windows {
namespace {

/// The thread's queue, with one message of our own at a time.
class Yields : public testing::Test {
 protected:
  Yields() {
    loop_.OnQuit([this] { ++delivered_; });
  }

  EventGate gate_;
  WindowsEventLoop loop_{gate_};
  int delivered_ = 0;
};

TEST_F(Yields, OneLooksAtOnceForWhatHasJustCome) {
  for (int i = 1; i <= 5; ++i) {
    PostQuitMessage(0);
    loop_.YieldToEvents();
    EXPECT_EQ(delivered_, i);
  }
}

TEST_F(Yields, ByTheThousandTheyLookOnceAMillisecond) {
  LARGE_INTEGER frequency{};
  LARGE_INTEGER began{};
  LARGE_INTEGER now{};
  QueryPerformanceFrequency(&frequency);
  loop_.YieldToEvents();
  QueryPerformanceCounter(&began);
  PostQuitMessage(0);
  loop_.YieldWhenDue();
  QueryPerformanceCounter(&now);
  // A machine that paused here has let the millisecond pass.
  const bool in_time = (now.QuadPart - began.QuadPart) * 1000 < frequency.QuadPart;
  EXPECT_TRUE(delivered_ == 0 || !in_time);
  Sleep(2);
  loop_.YieldWhenDue();
  EXPECT_EQ(delivered_, 1);
}

TEST_F(Yields, WhatWaitsAtTheGateIsDeliveredByEach) {
  loop_.YieldToEvents();
  for (int i = 1; i <= 5; ++i) {
    gate_.Deliver([this] { ++delivered_; });
    loop_.YieldWhenDue();
    EXPECT_EQ(delivered_, i);
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
