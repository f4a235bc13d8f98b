#include "simulator/live_source.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/simulator/canusb_bed.h"
#include "tests/simulator/frames.h"

namespace tolvane::simulator {
namespace {

class TextInHand : public GrowingText {
 public:
  explicit TextInHand(std::string& text) : text_(text) {}
  std::size_t Read(char* to, std::size_t size) override {
    const std::size_t taken = text_.copy(to, size);
    text_.erase(0, taken);
    return taken;
  }

 private:
  std::string& text_;
};

/// A live bus whose lines the test writes.
class LiveBus : public testing::Test {
 protected:
  /// The frames that have come by then, µs.
  std::vector<BusFrame> At(std::int64_t now_us, const std::string& lines) {
    text_ += lines;
    std::vector<BusFrame> frames;
    do {
      source_.Reach(now_us);
      const auto more = Take(source_, 1'000'000);
      frames.insert(frames.end(), more.begin(), more.end());
    } while (!text_.empty());
    return frames;
  }
  /// The time of the one frame that has come.
  std::int64_t TimeAt(std::int64_t now_us, const std::string& seconds) {
    const auto frames = At(now_us, "(" + seconds + ") can0 123#\n");
    EXPECT_EQ(frames.size(), 1u);
    return frames.empty() ? -1 : frames.back().time_us;
  }

  std::string text_;
  LiveSource source_{std::make_unique<TextInHand>(text_)};
};

TEST_F(LiveBus, AFrameIsThereAtOnceWhenItsLineIsWhole) {
  EXPECT_TRUE(At(1'000, "(7.0) can0 12").empty());
  EXPECT_TRUE(At(2'000, "3#0102").empty());
  const auto frames = At(3'000, "\n");
  ASSERT_EQ(frames.size(), 1u);
  EXPECT_EQ(frames[0], (BusFrame{.time_us = 3'000, .id = 0x123, .dlc = 2, .data = {1, 2}}));
}

TEST_F(LiveBus, TimesAreThoseOfTheLinesWhateverTheirDelays) {
  EXPECT_EQ(TimeAt(10'000, "7.000"), 10'000);
  EXPECT_EQ(TimeAt(25'000, "7.010"), 20'000);
  EXPECT_EQ(TimeAt(95'000, "7.020"), 30'000);
  EXPECT_EQ(TimeAt(95'000, "7.030"), 40'000);
}

TEST_F(LiveBus, TheQuickestLineSetsTheClockSoThatNoFrameIsAheadOfTheBus) {
  EXPECT_EQ(TimeAt(50'000, "7.000"), 50'000);
  EXPECT_EQ(TimeAt(55'000, "7.040"), 55'000);
  EXPECT_EQ(TimeAt(70'000, "7.050"), 65'000);
}

TEST_F(LiveBus, TimesBeginAnewWhenTheLinesClockIsSetBack) {
  EXPECT_EQ(TimeAt(0, "1000.0"), 0);
  EXPECT_EQ(TimeAt(100'000, "1000.1"), 100'000);
  EXPECT_EQ(TimeAt(200'000, "10.1"), 200'000);
  EXPECT_EQ(TimeAt(310'000, "10.2"), 300'000);
}

TEST_F(LiveBus, LinesALittleOutOfOrderDoNotMoveTheClock) {
  EXPECT_EQ(TimeAt(0, "10.000"), 0);
  EXPECT_EQ(TimeAt(2'000, "10.002"), 2'000);
  EXPECT_EQ(TimeAt(9'000, "10.001"), 2'000);
  EXPECT_EQ(TimeAt(9'000, "10.003"), 3'000);
}

TEST_F(LiveBus, OtherLinesAreLeftOut) {
  EXPECT_EQ(At(0, "hello\r\n\n  \n(1.0) can0 123#\r\n(1.0) can0 123##0\n").size(), 1u);
}

TEST_F(LiveBus, AnEndlessLineIsRefusedOnceAndWhatFollowsIsRead) {
  const std::string endless(3 * LiveSource::kBytes_MAX + 5, 'x');
  EXPECT_TRUE(At(0, endless).empty());
  EXPECT_EQ(At(1, " (1.0) can0 124#\n(1.0) can0 123#\n").size(), 1u);
}

TEST(LiveSource, TellsItsCountsAtItsEnd) {
  std::string text = "(1.0) can0 123#\nbad\n\n(1.0) can0 123#\nworse\n(1.0) can0";
  LiveCounts counts;
  {
    LiveSource source(std::make_unique<TextInHand>(text), false,
                      [&](const LiveCounts& told) { counts = told; });
    source.Reach(0);
    EXPECT_EQ(Take(source, 100).size(), 2u);
    EXPECT_EQ(counts.frames, 0);
  }
  EXPECT_EQ(counts.frames, 2);
  EXPECT_EQ(counts.refused_lines, 2);
}

TEST(LiveSource, ALineWhoseBeginningIsMissingIsNoLine) {
  std::string text = "0) can0 123#\n(1.0) can0 124#\n";
  LiveCounts counts;
  {
    LiveSource source(std::make_unique<TextInHand>(text), true,
                      [&](const LiveCounts& told) { counts = told; });
    source.Reach(0);
    EXPECT_EQ(Take(source, 100).size(), 1u);
  }
  EXPECT_EQ(counts.refused_lines, 0);
}

class LiveAdapter : public CanusbBed {
 protected:
  void PlugLive(const std::string& keys = "") {
    Plug("[bench]\n" + keys + "\n[bus]\nsource=live\nlog=live\n[canusb 1]\n");
  }
  /// Ids of what the adapter gives out until it has nothing.
  std::vector<std::int32_t> ReadAll(std::int32_t handle) {
    std::vector<std::int32_t> ids;
    platform::CanusbMessage message{};
    while (library_->canusb_Read(handle, message) == 1) ids.push_back(message.id);
    return ids;
  }
};

using IdList = std::vector<std::int32_t>;

TEST_F(LiveAdapter, ReceivesWhatIsWrittenWhileItIsOnTheBusAndNothingBefore) {
  PlugLive();
  bench_.Append("live.1", "(1.0) can0 001#\n(1.1) can0 0");
  const std::int32_t handle = Open("TV100001");
  EXPECT_EQ(ReadAll(handle), IdList{});
  bench_.Append("live.1", "02#\n(1.2) can0 003#\n");
  EXPECT_EQ(ReadAll(handle), IdList{3});
  bench_.Append("live.1", "(1.3) can0 004#\nbad\n");
  EXPECT_EQ(ReadAll(handle), IdList{4});
  library_->Close(handle);
  bench_.Append("live.1", "(1.4) can0 005#\n");
  const std::int32_t again = Open("TV100001");
  EXPECT_EQ(ReadAll(again), IdList{});
  bench_.Append("live.1", "(1.5) can0 006#\n");
  EXPECT_EQ(ReadAll(again), IdList{6});
  library_->Close(again);
  const std::string report = bench_.ReportText();
  EXPECT_NE(report.find("live frames=2 refused_lines=1 files_passed_over=0\n"), std::string::npos)
      << report;
  EXPECT_EQ(report.find(" end "), std::string::npos) << "a live bus has no known end";
}

TEST_F(LiveAdapter, WaitsForATextThatIsNotThereYet) {
  PlugLive();
  const std::int32_t handle = Open("TV100001");
  EXPECT_EQ(ReadAll(handle), IdList{});
  bench_.Append("live.1", "(1.0) can0 001#\n");
  EXPECT_EQ(ReadAll(handle), IdList{1});
  library_->Close(handle);
}

TEST_F(LiveAdapter, OfABurstKeepsWhatItsQueueHoldsAndCountsTheRest) {
  PlugLive("queue=4096");
  const std::int32_t handle = Open("TV100001");
  std::string burst;
  for (int n = 0; n < 100'000; ++n) burst += "(1.0) can0 123#0102030405060708\n";
  bench_.Append("live.1", burst);
  const auto delivered = std::ssize(ReadAll(handle));
  EXPECT_GE(delivered, 4'096);
  library_->Close(handle);
  const std::string report = bench_.ReportText();
  EXPECT_NE(report.find("delivered=" + std::to_string(delivered) +
                        " dropped=" + std::to_string(100'000 - delivered) + " "),
            std::string::npos)
      << report;
  EXPECT_NE(report.find("live frames=100000 refused_lines=0"), std::string::npos);
}

TEST_F(LiveAdapter, HasTheTimesOfTheLinesAtAnySpeedOfTheBench) {
  PlugLive("speed=10");
  const std::int32_t handle = Open("TV100001");
  bench_.Append("live.1", "(1.000) can0 001#\n(1.250) can0 002#\n");
  bench_.Advance(1'000'000);
  platform::CanusbMessage first{};
  platform::CanusbMessage second{};
  ASSERT_EQ(library_->canusb_Read(handle, first), 1);
  ASSERT_EQ(library_->canusb_Read(handle, second), 1);
  EXPECT_EQ(first.timestamp, 1'000);
  EXPECT_EQ(second.timestamp, 1'000) << "the second line has set the clock";
  bench_.Append("live.1", "(1.300) can0 001#\n");
  bench_.Advance(70'000);
  ASSERT_EQ(library_->canusb_Read(handle, first), 1);
  EXPECT_EQ(first.timestamp, 1'050);
  library_->Close(handle);
}

}  // namespace
}  // namespace tolvane::simulator
