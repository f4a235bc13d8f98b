// A row that loses its line keeps the places of its regions. Other lines stand there now, and must
// not take over its colours.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "tests/view/worker_bed.h"
#include "view/tables/highlight_columns.h"

namespace tolvane {
namespace {

constexpr Bytes8 kData = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08};
constexpr Bytes8 kOther = {0x01, 0x02, 0xFF, 0x04, 0x05, 0x06, 0x07, 0x88};
using Runs = std::vector<platform::ColourRun>;

/// The page begins with a line of ID 100 in colours, then comes a plain one of ID 200.
template <typename Worker>
class StaleRegion : public EachWorker<Worker> {
 protected:
  using typename EachWorker<Worker>::Frame;

  StaleRegion() {
    for (const double time : {1000, 1100}) {
      lit_ = this->bed_.Receive(0x100, 8, kData, time);
      this->bed_.Receive(0x200, 8, kData, time);
    }
    this->bed_.Page();
  }

  void Exclude(std::int32_t id) {
    this->bed_.device.t_DisableID_ON(7, 1);
    this->bed_.device.t_DisableID_Start(7, id);
    this->bed_.device.t_DisableID_End(7, id);
  }

  /// Another tick, without a line of ID 100.
  void ExpectNoColours() {
    const String page = this->bed_.Page();
    EXPECT_EQ(page.find(u"100  8"), String::npos);
    EXPECT_NE(page.find(u"200  8"), String::npos);
    EXPECT_EQ(this->bed_.Colours(), Runs{});
    EXPECT_EQ(this->bed_.Backgrounds(), Runs{});
  }

  std::int16_t lit_ = 0;
};

TYPED_TEST_SUITE(StaleRegion, AllWorkers);

TYPED_TEST(StaleRegion, OfChangedBytesIsNotPaintedBehindAnExclusion) {
  auto& bed = this->bed_;
  bed.Receive(0x100, 8, kOther, 1200);
  bed.Page();
  ASSERT_EQ(bed.Colours().size(), 2U);
  this->Exclude(0x100);
  this->ExpectNoColours();
  using Highlight = HighlightColumns<typename TestFixture::Bed::ViewTable>;
  EXPECT_EQ(Highlight::d_timerCounter[2](*bed.highlights)(this->lit_), 60000)
      << "its time stands still";
}

TYPED_TEST(StaleRegion, OfALateCycleIsNotPaintedBehindAnExclusion) {
  auto& bed = this->bed_;
  bed.Receive(0x100, 8, kData, 1500);
  bed.Page();
  ASSERT_EQ(bed.Colours().size(), 1U);
  this->Exclude(0x100);
  this->ExpectNoColours();
}

TYPED_TEST(StaleRegion, OfAStoppedMessageIsNotPaintedBehindAnExclusion) {
  auto& bed = this->bed_;
  bed.support.now = 10'000;
  bed.Receive(0x200, 8, kData, 1200);
  bed.Page();
  ASSERT_EQ(bed.Colours().size(), 1U);
  ASSERT_EQ(bed.Colours()[0].colour, bed.device.t_MsgBlackout_Color);
  this->Exclude(0x100);
  this->ExpectNoColours();
}

TYPED_TEST(StaleRegion, OfAMarkerIsNotPaintedBehindAnExclusion) {
  auto& bed = this->bed_;
  bed.device.t_MsgMarker_ON(0, 1);
  bed.device.t_MsgMarkerID(0, 0x100);
  bed.device.t_MsgMarkerStartByte(0, 1);
  bed.device.t_MsgMarkerEndByte(0, 2);
  bed.Page();
  ASSERT_EQ(bed.Backgrounds().size(), 1U);
  this->Exclude(0x100);
  this->ExpectNoColours();
}

TYPED_TEST(StaleRegion, OfARowThatIsNotSettledIsNotPainted) {
  auto& bed = this->bed_;
  bed.Receive(0x100, 8, kOther, 1500);
  bed.device.t_MsgMarker_ON(0, 1);
  bed.device.t_MsgMarkerID(0, 0x100);
  bed.Page();
  ASSERT_EQ(bed.Colours().size(), 3U);
  ASSERT_EQ(bed.Backgrounds().size(), 1U);
  auto& frames = *bed.frames;
  for (const std::uint8_t state : {row_state::kNone, row_state::kWriting}) {
    TestFixture::Frame::Received(frames)(this->lit_, state);
    bed.Page();
    EXPECT_EQ(bed.Colours(), Runs{}) << int{state};
    EXPECT_EQ(bed.Backgrounds(), Runs{}) << int{state};
  }
}

}  // namespace
}  // namespace tolvane
