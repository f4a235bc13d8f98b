#include "receive/tables/common_function2.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "platform/memory/system/support_library.h"
#include "receive/tables/time_line.h"

namespace tolvane {
namespace {

constexpr double kCanusbWrap = 60000.0;
constexpr double kInterfaceWrap = 429491.0;
constexpr double kKvaserWrap = 0.0;

class TimeBase : public testing::Test {
 protected:
  double Device(double reading, double wrap, double ratio = 1.0) {
    Common_Function2::Frame_Time_Update(0, time_.Time_Origin, time_.Message_Time,
                                        time_.Time_Last_Elapsed, reading, wrap, ratio, qxt100_);
    return time_.Message_Time;
  }
  double Clock(double now, double ratio = 1.0) {
    qxt100_.Now(now);
    Common_Function2::Frame_Time_Update(1, time_.Time_Origin, time_.Message_Time,
                                        time_.Time_Last_Elapsed, 12345.0, kCanusbWrap, ratio,
                                        qxt100_);
    return time_.Message_Time;
  }

  TimeLine time_;
  platform::memory::SupportLibrary qxt100_;
};

TEST_F(TimeBase, FirstFrameIsTimeZeroInDeviceMode) {
  EXPECT_EQ(Device(1234.0, kCanusbWrap), 0.0);
  EXPECT_EQ(time_.Time_Origin, 1234.0);
  EXPECT_EQ(time_.Time_Last_Elapsed, 0.0);
}

TEST_F(TimeBase, FirstFrameIsTimeZeroInClockMode) {
  EXPECT_EQ(Clock(1234.0), 0.0);
  EXPECT_EQ(time_.Time_Origin, 1234.0);
  EXPECT_EQ(time_.Time_Last_Elapsed, 0.0);
}

TEST_F(TimeBase, ZeroIsAnOriginLikeAnyOther) {
  EXPECT_EQ(Device(0.0, kCanusbWrap), 0.0);
  EXPECT_EQ(time_.Time_Origin, 0.0);
  EXPECT_EQ(Device(25.0, kCanusbWrap), 25.0);
}

TEST_F(TimeBase, RatioStretchesDeviceTimes) {
  EXPECT_EQ(Device(100.0, kCanusbWrap, 2.0), 0.0);
  EXPECT_EQ(Device(110.0, kCanusbWrap, 2.0), 20.0);
  EXPECT_EQ(Device(130.0, kCanusbWrap, 2.0), 60.0);
}

TEST_F(TimeBase, FirstFrameAfterWrapJumpsByTheFirstOrigin) {
  Device(30000.0, kCanusbWrap);
  EXPECT_EQ(Device(59990.0, kCanusbWrap), 29990.0);
  EXPECT_EQ(Device(10.0, kCanusbWrap), 30010.0);
  EXPECT_EQ(time_.Time_Origin, 0.0);
  EXPECT_EQ(time_.Time_Last_Elapsed, -29990.0);
  EXPECT_EQ(Device(30.0, kCanusbWrap), 60030.0);
}

TEST_F(TimeBase, LaterWrapsCostNothing) {
  Device(30000.0, kCanusbWrap);
  Device(10.0, kCanusbWrap);
  const double after_jump = Device(30.0, kCanusbWrap);
  EXPECT_EQ(Device(59990.0, kCanusbWrap), after_jump + 59960.0);
  EXPECT_EQ(Device(5.0, kCanusbWrap), after_jump + 59975.0);
  EXPECT_EQ(Device(45.0, kCanusbWrap), after_jump + 60015.0);
}

TEST_F(TimeBase, NoJumpWhenTheFirstReadingWasZero) {
  Device(0.0, kCanusbWrap);
  EXPECT_EQ(Device(59990.0, kCanusbWrap), 59990.0);
  EXPECT_EQ(Device(10.0, kCanusbWrap), 60010.0);
  EXPECT_EQ(Device(30.0, kCanusbWrap), 60030.0);
}

TEST_F(TimeBase, InterfaceWrapsAfterItsOwnLength) {
  Device(0.0, kInterfaceWrap);
  Device(429490.0, kInterfaceWrap);
  EXPECT_EQ(Device(4.0, kInterfaceWrap), 429495.0);
}

TEST_F(TimeBase, KvaserTimerThatStepsBackTakesTheLineBack) {
  Device(1000.0, kKvaserWrap);
  EXPECT_EQ(Device(2000.0, kKvaserWrap), 1000.0);
  EXPECT_EQ(Device(1500.0, kKvaserWrap), 500.0);
  EXPECT_EQ(time_.Time_Origin, 0.0);
  EXPECT_EQ(time_.Time_Last_Elapsed, 500.0);
  EXPECT_EQ(Device(1600.0, kKvaserWrap), 1600.0);
}

TEST_F(TimeBase, EqualReadingsGrowNothingAndAreNoWrap) {
  Device(500.0, kCanusbWrap);
  Device(700.0, kCanusbWrap);
  EXPECT_EQ(Device(700.0, kCanusbWrap), 200.0);
  EXPECT_EQ(time_.Time_Origin, 500.0);
}

TEST_F(TimeBase, FirstReadingOfMinusOneLooksLikeNoReadingYet) {
  EXPECT_EQ(Device(-1.0, kInterfaceWrap), 0.0);
  EXPECT_EQ(time_.Time_Origin, -1.0);
  EXPECT_EQ(Device(100.0, kInterfaceWrap), 0.0);
  EXPECT_EQ(time_.Time_Origin, 100.0);
}

TEST_F(TimeBase, OtherNegativeOriginStandsStillInDeviceMode) {
  Device(-7.0, kInterfaceWrap);
  EXPECT_EQ(time_.Time_Origin, -7.0);
  EXPECT_EQ(Device(100.0, kInterfaceWrap), 0.0);
  EXPECT_EQ(time_.Time_Origin, -7.0);
}

TEST_F(TimeBase, RatioOfZeroStopsTheLine) {
  Device(100.0, kCanusbWrap, 0.0);
  EXPECT_EQ(Device(5000.0, kCanusbWrap, 0.0), 0.0);
}

TEST_F(TimeBase, ClockModeFollowsTheClock) {
  Clock(1000.0);
  EXPECT_EQ(Clock(1010.0), 10.0);
  EXPECT_EQ(Clock(1530.0), 530.0);
  EXPECT_EQ(time_.Time_Last_Elapsed, 530.0);
}

TEST_F(TimeBase, ClockModeIgnoresTheRatio) {
  Clock(1000.0, 0.1);
  EXPECT_EQ(Clock(1100.0, 0.1), 100.0);
}

TEST_F(TimeBase, ClockModeTakesAnyNegativeOriginForNone) {
  time_.Time_Origin = -7.0;
  EXPECT_EQ(Clock(500.0), 0.0);
  EXPECT_EQ(time_.Time_Origin, 500.0);
}

TEST_F(TimeBase, ClockIsReadOnceInClockModeAndNeverInDeviceMode) {
  Clock(1.0);
  EXPECT_EQ(qxt100_.Reads(), 1);
  Device(1.0, kCanusbWrap);
  EXPECT_EQ(qxt100_.Reads(), 1);
}

TEST_F(TimeBase, AnyOtherModeChangesNothing) {
  for (const std::int32_t mode : {-1, 2, INT32_MIN, INT32_MAX}) {
    Common_Function2::Frame_Time_Update(mode, time_.Time_Origin, time_.Message_Time,
                                        time_.Time_Last_Elapsed, 100.0, kCanusbWrap, 1.0, qxt100_);
    EXPECT_EQ(time_.Time_Origin, -1.0) << mode;
    EXPECT_EQ(time_.Message_Time, 0.0) << mode;
    EXPECT_EQ(time_.Time_Last_Elapsed, 0.0) << mode;
  }
  EXPECT_EQ(qxt100_.Reads(), 0);
}

// Each line is a case in which rounding the product before the sum gives the neighbouring double.
TEST_F(TimeBase, SumsAreRoundedOnceAtTheEnd) {
  const struct {
    double elapsed;
    double ratio;
    double line;
    double rounded_once;
  } kCases[] = {
      {3.0, 0.7, 0.8999999999999999, 3.0},
      {73.0, 1.1, 21.9, 102.2},
      {278.0, 1.003, 83.39999999999999, 362.234},
      {544.0, 1.1, 163.2, 761.6},
  };
  for (const auto& row : kCases) {
    time_ = {.Time_Origin = 0.0, .Time_Last_Elapsed = 0.0, .Message_Time = row.line};
    EXPECT_EQ(Device(row.elapsed, kCanusbWrap, row.ratio), row.rounded_once) << row.elapsed;
  }
}

}  // namespace
}  // namespace tolvane
