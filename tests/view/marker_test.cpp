#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "tests/view/tick_bed.h"

namespace tolvane {
namespace {

constexpr Bytes8 kData = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08};
constexpr std::int32_t kCells = 34 + 8;  // the blank before the first byte of the first row

using Bed = TickBed<WorkerKind::FormBG>;
using Runs = std::vector<platform::ColourRun>;

template <typename AnyBed>
void Mark(AnyBed& bed, std::int16_t m, std::int32_t id, std::int32_t start, std::int32_t end,
          std::int32_t colour) {
  bed.device.t_MsgMarker_ON(m, 1);
  bed.device.t_MsgMarkerID(m, id);
  bed.device.t_MsgMarkerStartByte(m, start);
  bed.device.t_MsgMarkerEndByte(m, end);
  bed.device.t_MsgMarkerColor(m, colour);
}

TEST(Marker, CoversItsBytesWithTheBlanksBetween) {
  Bed bed;
  bed.Receive(0x100, 8, kData, 5);
  Mark(bed, 0, 0x100, 3, 5, 0xABCDEF);
  const String& page = bed.Page();
  EXPECT_EQ(bed.Backgrounds(), (Runs{{kCells + 7, kCells + 15, 0xABCDEF}}));
  EXPECT_EQ(page.substr(kCells + 7, 8), u"03 04 05");
  EXPECT_EQ(bed.highlights->ViewColorMsgMarker_start(0), kCells + 7);
  EXPECT_EQ(bed.highlights->ViewColorMsgMarker_end(0), 8);
  EXPECT_EQ(bed.Colours(), Runs{});
}

TEST(Marker, CombinesWithTheTextColourOfTheSameCharacters) {
  Bed bed;
  bed.Receive(0x100, 8, kData, 1000);
  bed.Receive(0x100, 8, {0x01, 0xFF, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08}, 1100);
  Mark(bed, 0, 0x100, 2, 2, 0xFFB3F3);
  bed.Page();
  EXPECT_EQ(bed.Colours(), (Runs{{kCells + 4, kCells + 6, 60000}}));
  EXPECT_EQ(bed.Backgrounds(), (Runs{{kCells + 4, kCells + 6, 0xFFB3F3}}));
}

TEST(Marker, OfTwoOnOneIDTheLaterWinsWhereTheyOverlap) {
  Bed bed;
  bed.Receive(0x100, 8, kData, 5);
  Mark(bed, 5, 0x100, 1, 4, 0x111111);
  Mark(bed, 6, 0x100, 2, 2, 0x222222);
  bed.Page();
  EXPECT_EQ(bed.Backgrounds(), (Runs{{kCells + 1, kCells + 4, 0x111111},
                                     {kCells + 4, kCells + 6, 0x222222},
                                     {kCells + 6, kCells + 12, 0x111111}}));
}

TEST(Marker, NeedsItsSwitchAndALine) {
  Bed bed;
  bed.Receive(0x100, 8, kData, 5);
  Mark(bed, 0, 0x100, 1, 1, 1);
  Mark(bed, 1, 0x101, 1, 1, 2);
  bed.device.t_MsgMarker_ON(0, 2);
  bed.Page();
  EXPECT_EQ(bed.Backgrounds(), Runs{});
}

TEST(Marker, WithItsFirstByteBeyondTheLengthItPaintsTheHeadOfThePage) {
  Bed bed;
  bed.Receive(0x100, 2, kData, 5);
  Mark(bed, 0, 0x100, 3, 4, 7);
  bed.Page();
  EXPECT_EQ(bed.Backgrounds(), (Runs{{0, 5, 7}}));
}

TEST(Marker, OnAFrameWithoutBytesHasALengthAllTheSame) {
  Bed bed;
  bed.Receive(0x100, 0, kData, 5);
  Mark(bed, 0, 0x100, 1, 2, 7);
  bed.Page();
  EXPECT_EQ(bed.Backgrounds(), (Runs{{0, 5, 7}}));
}

TEST(Marker, OfAShortenedFrameKeepsItsOldStart) {
  Bed bed;
  bed.Receive(0x100, 8, kData, 5);
  Mark(bed, 0, 0x100, 8, 8, 7);
  bed.Page();
  bed.Receive(0x100, 2, kData, 105);
  bed.Page();
  EXPECT_EQ(bed.Backgrounds(), (Runs{{kCells + 22, kCells + 24, 7}}));
}

TEST(Marker, WithItsLastByteBeyondTheLengthItPaintsOverThePadding) {
  Bed bed;
  bed.Receive(0x100, 2, kData, 5);
  Mark(bed, 0, 0x100, 2, 8, 7);
  bed.Page();
  EXPECT_EQ(bed.Backgrounds(), (Runs{{kCells + 4, kCells + 24, 7}}));
}

TEST(Marker, OnDLCNineHasNoEighthByteToStandOn) {
  Bed bed;
  bed.Receive(0x100, 9, kData, 5);
  Mark(bed, 0, 0x100, 8, 8, 7);
  bed.Page();
  EXPECT_EQ(bed.Backgrounds(), (Runs{{0, 2, 7}}));
}

TEST(Marker, WithItsLastByteBeforeItsFirstPaintsNothing) {
  Bed bed;
  bed.Receive(0x100, 8, kData, 5);
  Mark(bed, 0, 0x100, 5, 4, 7);
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorMsgMarker_end(0), -1);
  EXPECT_EQ(bed.Backgrounds(), Runs{});
}

TEST(Marker, AnyByteNumbersAreTaken) {
  using Limits = std::numeric_limits<std::int32_t>;
  Bed bed;
  bed.Receive(0x100, 8, kData, 5);
  Mark(bed, 0, 0x100, Limits::min(), Limits::max(), 7);
  Mark(bed, 1, 0x100, Limits::max(), Limits::min(), 8);
  bed.device.t_MsgMarker_MAX = Limits::max();
  const auto length = static_cast<std::int32_t>(bed.Page().size());
  EXPECT_EQ(bed.Backgrounds(), (Runs{{0, length, 7}}));
}

TEST(Marker, StartsAreNotedOnEachTick) {
  Bed bed;
  bed.Receive(0x100, 8, kData, 5);
  Mark(bed, 0, 0x100, 1, 1, 7);
  bed.Page();
  bed.Receive(0x0F0, 8, kData, 5);
  bed.Page();
  constexpr std::int32_t kLine = 8 + 24 + 3 + 6 + 2;
  EXPECT_EQ(bed.Backgrounds(), (Runs{{kCells + kLine + 1, kCells + kLine + 3, 7}}));
}

TEST(Marker, OnANumberWithTwoRowsIsRecordedAtTheLaterOne) {
  TickBed<WorkerKind::FormBG_29> bed;
  bed.Receive(0x123, 8, kData, 5, kStandard);
  bed.Receive(0x123, 8, kData, 5);
  Mark(bed, 3, 0x123, 1, 2, 7);
  bed.Page();
  constexpr std::int32_t kSecondCells = 41 + (15 + 24 + 3 + 6 + 2) + 15;
  EXPECT_EQ(bed.highlights->VColorMsgMarker_start(3), kSecondCells + 1);
  EXPECT_EQ(bed.highlights->VColorMsgMarker_end(3), 5);
  EXPECT_EQ(bed.Backgrounds(), (Runs{{kSecondCells + 1, kSecondCells + 6, 7}}));
}

TEST(Marker, WithoutTheFirstByteInTheLaterRowTheEarlierOneIsPainted) {
  TickBed<WorkerKind::FormBG2_29> bed;
  bed.Receive(0x123, 8, kData, 5, kStandard);
  bed.Receive(0x123, 0, kData, 5);
  Mark(bed, 3, 0x123, 1, 1, 7);
  bed.Page();
  EXPECT_EQ(bed.Backgrounds(), (Runs{{41 + 15 + 1, 41 + 15 + 3, 7}}));
}

}  // namespace
}  // namespace tolvane
