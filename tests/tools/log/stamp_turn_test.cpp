#include "tools/log/runs/stamp_turn.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "platform/memory/system/journal.h"
#include "platform/memory/system/support_library.h"
#include "platform/memory/vendor/ifcan_library.h"
#include "receive/adapters/interface_binding.h"
#include "receive/tables/time_line.h"
#include "run/adapter_kind.h"
#include "tests/tools/log/moments.h"

namespace tolvane::logtool {
namespace {

constexpr double kHalfWord = 2'147'483.648;  // ms

/// The times that a run logs whose frames come at these moments, from a board whose stamps are µs
/// in a signed word, with `origin` in that of the first frame. All in ms.
std::vector<double> LoggedByABoard(const std::vector<double>& moments, double origin,
                                   double ratio = 1.0) {
  platform::memory::Journal journal;
  platform::memory::IfcanLibrary IFCan(journal);
  InterfaceCAN IfCan_u;
  CAN_DB_Interface IfCan_d;
  InterfaceBinding board(IFCan, IfCan_u, IfCan_d);
  IFCan.ports = {{.number = 1}};
  IfCan_d.Interface_CAN_SelectNo = 1;
  EXPECT_TRUE(board.Open());
  platform::memory::SupportLibrary qxt100;
  TimeLine line;
  std::vector<double> times;
  for (const double moment : moments) {
    const std::int64_t us = std::llround((origin + moment) * 1000.0);
    platform::IfcanMessage frame = {};
    frame.timestamp = static_cast<std::int32_t>(us);
    IFCan.frames.Play({frame});
    Common_Function2::Frame_Time_Update(
        0, line.Time_Origin, line.Message_Time, line.Time_Last_Elapsed, board.Read()->device_time,
        AdapterTraitsOf(AdapterKind::kInterface).timer_wrap, ratio, qxt100);
    times.push_back(line.Message_Time);
  }
  return times;
}

StampTurn TurnOf(const std::vector<double>& times) {
  StampTurn turn(true);
  for (const double time : times) turn.Follow(time);
  return turn;
}

/// Each mended time is that of its moment, but for the doubt of the jump and what the whole ms of
/// the stamps leave open.
void ExpectMended(const std::vector<double>& moments, const std::vector<double>& times) {
  StampTurn turn(true);
  for (std::size_t i = 0; i < times.size(); ++i) {
    turn.Follow(times[i]);
    const double open = turn.TheTurn() ? turn.TheTurn()->doubt + 2.0 : 1.0;
    ASSERT_NEAR(times[i] - turn.Ahead(), moments[i], open) << i;
  }
  ASSERT_TRUE(turn.TheTurn());
}

TEST(StampTurn, IsTakenOutWhereverTheRunBegan) {
  for (const double cycle : {1.0, 3.0, 10.0, 70.0}) {
    for (const double origin : {0.0, 7.0, 1'000.0, 2'000'000.0, 2'147'000.0}) {
      const double before = kHalfWord - origin;
      std::vector<double> moments = {0.0};
      for (const double moment : MomentsEvery(cycle, 10'000.0)) {
        moments.push_back(std::max(0.0, before - 5'000.0) + moment);
      }
      const std::vector<double> times = LoggedByABoard(moments, origin);
      const double end = times.back() - moments.back();
      ASSERT_NEAR(end, origin - StampTurn::StepBack(), 2.0) << "the writer steps back and jumps";
      ASSERT_NO_FATAL_FAILURE(ExpectMended(moments, times)) << origin << " " << cycle;
      const StampTurn turn = TurnOf(times);
      EXPECT_EQ(turn.TheTurn()->steps, 1U);
      EXPECT_NEAR(turn.TheTurn()->jump, origin, turn.TheTurn()->doubt);
      EXPECT_LE(turn.TheTurn()->doubt, std::ceil(cycle / 2.0) + 1.0);
    }
  }
}

TEST(StampTurn, IsTakenOutEachTimeTheStampsGoRound) {
  const std::vector<double> moments = MomentsEvery(50.0, 11'000'000.0);
  const std::vector<double> times = LoggedByABoard(moments, 500'000.0);
  StampTurn turn(true);
  for (std::size_t i = 0; i < times.size(); ++i) {
    turn.Follow(times[i]);
    // Each way through 0 has its own lost part of a ms, and each turn too.
    ASSERT_NEAR(times[i] - turn.Ahead(), moments[i], 25.0 + 10.0) << i;
  }
  EXPECT_EQ(turn.TheTurn()->steps, 3U);
  EXPECT_EQ(turn.TheTurn()->at, 1'647'450.0);
}

TEST(StampTurn, ASilenceOverItStays) {
  for (const double silence : {80.0, 400.0, 59'990.0}) {
    // And 300 ms behind it.
    std::vector<double> moments = MomentsEvery(10.0, 1'000.0);
    moments.push_back(990.0 + silence);
    moments.push_back(1'290.0 + silence);
    const std::vector<double> times = LoggedByABoard(moments, kHalfWord - 1'000.0);
    const StampTurn turn = TurnOf(times);
    ASSERT_TRUE(turn.TheTurn()) << silence;
    EXPECT_EQ(turn.TheTurn()->at, 990.0);
    EXPECT_LE(turn.TheTurn()->doubt, silence / 2.0 + 1.0);
    ASSERT_NO_FATAL_FAILURE(ExpectMended(moments, times)) << silence;
  }
}

TEST(StampTurn, IsNoneOfABoardThatIsReset) {
  for (const double silence : {0.0, 70'000.0, 500'000.0}) {
    std::vector<double> moments = MomentsEvery(1'000.0, 1'000'000.0);
    for (const double moment : MomentsEvery(1'000.0, 600'000.0)) {
      moments.push_back(1'000'000.0 + silence + moment);
    }
    for (const double moment : MomentsEvery(1'000.0, 5'000.0)) moments.push_back(moment);
    const std::vector<double> times = LoggedByABoard(moments, 1.0);
    EXPECT_LT(times[times.size() - 5], times[times.size() - 6]) << "the line steps back";
    EXPECT_FALSE(TurnOf(times).TheTurn()) << silence;
  }
}

TEST(StampTurn, OfALogWithoutItsBeginIsASecondOneWithoutAJump) {
  std::vector<double> times = LoggedByABoard(MomentsEvery(50.0, 7'000'000.0), 0.0);
  times.erase(times.begin(), times.begin() + 80'000);
  const StampTurn turn = TurnOf(times);
  ASSERT_TRUE(turn.TheTurn());
  EXPECT_EQ(turn.TheTurn()->steps, 1U);
  EXPECT_EQ(turn.Ahead(), -StampTurn::StepBack());
}

TEST(StampTurn, IsNoneOfOtherStepsBack) {
  const auto is_found = [](const std::vector<double>& times) {
    return TurnOf(times).TheTurn().has_value();
  };
  const double step = StampTurn::StepBack();
  EXPECT_TRUE(is_found({0, 10, 20, 30 - step}));
  EXPECT_TRUE(is_found({0, 10, 20, 20 - step}));
  EXPECT_FALSE(is_found({0, 10, 20, 19 - step})) << "a board has no such stamps";
  EXPECT_TRUE(is_found({0, 10, 20, 60'020 - step}));
  EXPECT_FALSE(is_found({0, 10, 20, 60'021 - step})) << "a silence of more than a minute";
  EXPECT_FALSE(is_found({0, 1'000'000, 1'000'000 + 60'001 - step})) << "however long others were";
  EXPECT_FALSE(is_found({0, 10, 20, 10}));
  EXPECT_FALSE(is_found({20 - step}));
  EXPECT_FALSE(is_found(MomentsEvery(10.0, 3'000'000.0)));
  const std::vector<double> moments = MomentsEvery(10.0, 5'000.0);
  EXPECT_TRUE(is_found(LoggedByABoard(moments, kHalfWord - 2'000.0)));
  EXPECT_FALSE(is_found(LoggedByABoard(moments, kHalfWord - 2'000.0, 0.5)))
      << "another division ratio";
  EXPECT_FALSE(is_found(LoggedByABoard(moments, kHalfWord - 2'000.0, 2.0)));
}

TEST(StampTurn, IsThatOfABoard) {
  const auto has = [](const char* adapter) {
    LogHead head;
    head.adapter = adapter;
    return HasSignedStamps(head);
  };
  EXPECT_TRUE(has("Interface PCI-485120 RevID:1 ch:1"));
  EXPECT_FALSE(has("CANUSB ABCD \x81\x41V1.0"));
  EXPECT_FALSE(has("Kvaser Leaf"));
  StampTurn other(false);
  for (const double time : LoggedByABoard(MomentsEvery(10.0, 5'000.0), kHalfWord - 2'000.0))
    other.Follow(time);
  EXPECT_FALSE(other.TheTurn());
  EXPECT_EQ(other.Ahead(), 0.0);
}

TEST(StampTurn, AStepWithoutTheJumpIsTakenAlone) {
  const StampTurn turn =
      TurnOf({0, 10, 20, 30 - StampTurn::StepBack(), 40 - StampTurn::StepBack()});
  EXPECT_EQ(turn.Ahead(), -StampTurn::StepBack());
  EXPECT_EQ(turn.TheTurn()->jump, 0.0);
}

}  // namespace
}  // namespace tolvane::logtool
