#include "receive/adapters/canusb_binding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "platform/memory/vendor/canusb_library.h"
#include "tests/receive/adapters/binding_bed.h"

namespace tolvane {
namespace {

class CanusbTest : public BindingTest {
 protected:
  platform::memory::CanusbLibrary canusbdrv_{journal_};
  CANUSB CAN_u_;
  CAN_DB CAN_d_;
  CanusbBinding binding_{canusbdrv_, CAN_u_, CAN_d_};
};

TEST_F(CanusbTest, OpensWithTheRateTextOfEachBitRate) {
  const std::map<std::int32_t, std::string> kRates = {
      {0, "1000"}, {1, "800"}, {2, "500"}, {3, "250"}, {4, "100"}, {5, "50"},
      {6, "20"},   {7, "10"},  {8, "125"}, {9, ""},    {-1, ""},   {INT32_MAX, ""}};
  CAN_d_.CAN_USB_SelectSerial = u"LWR12345";
  for (const auto& [t_bitRate, rate] : kRates) {
    EXPECT_TRUE(binding_.TakeRate(t_bitRate)) << t_bitRate;
    EXPECT_TRUE(binding_.Open());
    EXPECT_EQ(journal_.Take(), Calls{"canusb_Open(\"LWR12345\", \"" + rate + "\", 0, -1, 1)"});
  }
}

TEST_F(CanusbTest, AnUnknownRateAfterAKnownOneIsEmptyAgain) {
  EXPECT_TRUE(binding_.TakeRate(2));
  EXPECT_TRUE(binding_.TakeRate(99));
  EXPECT_TRUE(binding_.Open());
  EXPECT_EQ(journal_.Take(), Calls{"canusb_Open(\"\", \"\", 0, -1, 1)"});
}

TEST_F(CanusbTest, HandleOfZeroOrLessIsAFailure) {
  for (const std::int32_t handle : {0, -2, INT32_MIN}) {
    canusbdrv_.open_result = handle;
    EXPECT_FALSE(binding_.Open()) << handle;
    EXPECT_EQ(CAN_d_.CAN_USB_Handle, handle);
  }
  canusbdrv_.open_result = 17;
  EXPECT_TRUE(binding_.Open());
  EXPECT_EQ(CAN_d_.CAN_USB_Handle, 17);
}

TEST_F(CanusbTest, HasNoConfigurationAndNoSilentMode) {
  device_.t_silent_mode = 1;
  binding_.Configure(device_);
  binding_.GoOnBus();
  EXPECT_EQ(journal_.Take(), Calls{});
}

TEST_F(CanusbTest, ReadsOneRecordWithTheHandleOfTheRecord) {
  CAN_d_.CAN_USB_Handle = 5;
  canusbdrv_.note_reads = true;
  canusbdrv_.frames.Play({{-7, 59999, 128, 255, kFrameBytes}});
  const ReceivedFrame* frame = binding_.Read();
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->id, -7);
  EXPECT_EQ(frame->device_time, 59999);
  EXPECT_FALSE(frame->plain_standard);
  EXPECT_EQ(frame->can_DLC, 255);
  EXPECT_TRUE(std::equal(kFrameBytes.begin(), kFrameBytes.end(), frame->can_DATA.begin()));
  EXPECT_EQ(binding_.Read(), nullptr);
  EXPECT_EQ(journal_.Take(), (Calls{"canusb_Read(5)", "canusb_Read(5)"}));
}

TEST_F(CanusbTest, ReadResultOfZeroOrLessIsNoFrame) {
  for (const std::int32_t result : {0, -1, -7, INT32_MIN}) {
    canusbdrv_.empty_read_result = result;
    EXPECT_EQ(binding_.Read(), nullptr) << result;
  }
}

TEST_F(CanusbTest, AnyReadResultAboveZeroIsAFrame) {
  for (const std::int32_t result : {1, 2, INT32_MAX}) {
    canusbdrv_.read_result = result;
    canusbdrv_.frames.Play({{0x10, 0, 0, 8, kFrameBytes}});
    EXPECT_NE(binding_.Read(), nullptr) << result;
  }
}

TEST_F(CanusbTest, ClosesItsHandle) {
  CAN_d_.CAN_USB_Handle = 5;
  EXPECT_EQ(binding_.Close(), 0);
  EXPECT_EQ(journal_.Take(), Calls{"canusb_Close(5)"});
}

TEST(CanusbKeyFlags, AreFlagsOver128RoundedHalvesToEven) {
  const struct {
    std::int32_t flags;
    KeyFlags key;
  } kCases[] = {{0, {0, 0, 0}},    {1, {{}, 0, 0}},   {63, {{}, 0, 0}},  {64, {{}, 0, 0}},
                {65, {{}, 1, 1}},  {127, {{}, 1, 1}}, {128, {1, 1, 1}},  {129, {{}, 1, 1}},
                {191, {{}, 1, 1}}, {192, {{}, 2, 2}}, {193, {{}, 2, 2}}, {255, {{}, 2, 2}}};
  for (const auto& row : kCases) {
    EXPECT_EQ(CanusbBinding::KeyFlagsOf(static_cast<std::uint8_t>(row.flags)), row.key)
        << row.flags;
  }
}

}  // namespace
}  // namespace tolvane
