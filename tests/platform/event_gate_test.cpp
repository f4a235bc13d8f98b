#include "platform/event_gate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tolvane::platform {
namespace {

using testing::ElementsAre;

TEST(EventGate, DeliversAtOnceWhileTheProgramWaits) {
  EventGate gate;
  int came = 0;
  gate.Deliver([&] { ++came; });
  EXPECT_EQ(came, 1);
  gate.Deliver([&] { ++came; });
  EXPECT_EQ(came, 2);
}

TEST(EventGate, HoldsEventsWhileAHandlerRunsAndGivesThemInTheirOrder) {
  EventGate gate;
  std::vector<std::string> journal;
  gate.Deliver([&] {
    gate.Deliver([&] { journal.emplace_back("first"); });
    gate.Deliver([&] { journal.emplace_back("second"); });
    gate.DeliverWaiting();
    journal.emplace_back("handler ends");
  });
  EXPECT_THAT(journal, ElementsAre("handler ends"));
  gate.DeliverWaiting();
  EXPECT_THAT(journal, ElementsAre("handler ends", "first", "second"));
}

TEST(EventGate, AScopeOfAYieldLetsEventsInAndClosesBehindItself) {
  EventGate gate;
  std::vector<std::string> journal;
  gate.Deliver([&] {
    {
      const EventGate::Opened yield(gate);
      gate.Deliver([&] {
        journal.emplace_back("nested");
        gate.Deliver([&] { journal.emplace_back("left by it"); });
      });
    }
    gate.Deliver([&] { journal.emplace_back("held"); });
    journal.emplace_back("run ends");
  });
  gate.DeliverWaiting();
  EXPECT_THAT(journal, ElementsAre("nested", "run ends", "left by it", "held"));
}

TEST(EventGate, AnEventThatLeavesAnotherBehindIsFollowedByIt) {
  EventGate gate;
  std::vector<std::string> journal;
  gate.Deliver([&] {
    gate.Deliver([&] {
      journal.emplace_back("first");
      gate.Deliver([&] { journal.emplace_back("its child"); });
    });
  });
  gate.DeliverWaiting();
  EXPECT_THAT(journal, ElementsAre("first", "its child"));
}

}  // namespace
}  // namespace tolvane::platform
