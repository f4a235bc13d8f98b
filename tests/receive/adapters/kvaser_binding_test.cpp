#include "receive/adapters/kvaser_binding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>

#include "platform/memory/vendor/canlib_library.h"
#include "receive/adapters/handle_text.h"
#include "tests/receive/adapters/binding_bed.h"

namespace tolvane {
namespace {

class KvaserTest : public BindingTest {
 protected:
  KvaserTest() {
    canlib32_.channels = {0, 3, 8};
    kvCan_d_.Kvaser_DevChannel(0, 1);
    kvCan_d_.Kvaser_DevChannel(1, 2);
    kvCan_d_.KvCAN_SelectNo = 1;
  }

  platform::memory::CanlibLibrary canlib32_{journal_};
  KvaserCAN kvCan_u_;
  CAN_DB_Kvaser kvCan_d_;
  KvaserBinding binding_{canlib32_, kvCan_u_, kvCan_d_};
};

TEST_F(KvaserTest, SetsTheRateOfEachBitRateItHas) {
  const std::map<std::int32_t, std::string> kRates = {{0, "-1"}, {2, "-2"}, {3, "-3"}, {4, "-5"},
                                                      {5, "-7"}, {7, "-9"}, {8, "-4"}};
  for (const auto& [t_bitRate, rate] : kRates) {
    EXPECT_TRUE(binding_.TakeRate(t_bitRate));
    EXPECT_TRUE(binding_.Open());
    binding_.Configure(device_);
    EXPECT_EQ(journal_.Take(),
              (Calls{"canOpenChannel(1, 128)", "canSetBusParams(3, " + rate + ", 5, 2, 1, 1, 0)",
                     "canSetBusOutputControl(3, 4)"}));
  }
}

TEST_F(KvaserTest, RefusesTheRatesItLacks) { ExpectRates(binding_, {0, 2, 3, 4, 5, 7, 8}); }

TEST_F(KvaserTest, SilentModeChoosesTheDriverType) {
  const std::map<std::int32_t, Calls> kDrivers = {{0, {"canSetBusOutputControl(3, 4)"}},
                                                  {1, {"canSetBusOutputControl(3, 1)"}},
                                                  {2, {}},
                                                  {-1, {}}};
  EXPECT_TRUE(binding_.TakeRate(2));
  EXPECT_TRUE(binding_.Open());
  for (const auto& [t_silent_mode, driver] : kDrivers) {
    device_.t_silent_mode = t_silent_mode;
    journal_.Clear();
    binding_.Configure(device_);
    Calls expected = {"canSetBusParams(3, -2, 5, 2, 1, 1, 0)"};
    expected.insert(expected.end(), driver.begin(), driver.end());
    EXPECT_EQ(journal_.Take(), expected) << t_silent_mode;
  }
}

TEST_F(KvaserTest, FirstFoundChannelIsAtIndexZero) {
  EXPECT_TRUE(binding_.Open());
  EXPECT_EQ(journal_.Take(), Calls{"canOpenChannel(1, 128)"});
  kvCan_d_.KvCAN_SelectNo = 2;
  EXPECT_TRUE(binding_.Open());
  EXPECT_EQ(journal_.Take(), Calls{"canOpenChannel(2, 128)"});
  EXPECT_EQ(kvCan_d_.KvCAN_Handle, u"8");
}

TEST_F(KvaserTest, HandleZeroIsAHandleAndANegativeOneAFailure) {
  canlib32_.channels = {0, 0};
  EXPECT_TRUE(binding_.Open());
  EXPECT_EQ(kvCan_d_.KvCAN_Handle, u"0");
  canlib32_.channels = {0, -3};
  kvCan_d_.KvCAN_Handle = HandleText(6);
  EXPECT_FALSE(binding_.Open());
  EXPECT_EQ(kvCan_d_.KvCAN_Handle, u"6");
}

TEST_F(KvaserTest, GoesOnBusAndClosesBusFirst) {
  EXPECT_TRUE(binding_.Open());
  journal_.Clear();
  binding_.GoOnBus();
  EXPECT_EQ(binding_.Close(), 0);
  EXPECT_EQ(journal_.Take(), (Calls{"canBusOn(3)", "canBusOff(3)", "canClose(3)"}));
}

TEST_F(KvaserTest, ResultsOfTheSetUpAreNotLookedAt) {
  canlib32_.call_result = -8;
  EXPECT_TRUE(binding_.Open());
  binding_.Configure(device_);
  binding_.GoOnBus();
  EXPECT_EQ(binding_.Close(), 0);
  EXPECT_EQ(journal_.Take(),
            (Calls{"canOpenChannel(1, 128)", "canSetBusParams(3, 0, 5, 2, 1, 1, 0)",
                   "canSetBusOutputControl(3, 4)", "canBusOn(3)", "canBusOff(3)", "canClose(3)"}));
}

TEST_F(KvaserTest, ReadsOneFrame) {
  EXPECT_TRUE(binding_.Open());
  journal_.Clear();
  canlib32_.note_reads = true;
  canlib32_.frames.Play({{0x18FF0001, kFrameBytes, -1, 4, -5}});
  const ReceivedFrame* frame = binding_.Read();
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->id, 0x18FF0001);
  EXPECT_EQ(frame->can_DLC, -1);
  EXPECT_FALSE(frame->plain_standard);
  EXPECT_EQ(frame->device_time, -5);
  EXPECT_TRUE(std::equal(kFrameBytes.begin(), kFrameBytes.end(), frame->can_DATA.begin()));
  EXPECT_EQ(binding_.Read(), nullptr);
  EXPECT_EQ(journal_.Take(), (Calls{"canRead(3)", "canRead(3)"}));
}

TEST_F(KvaserTest, AReadFromCanOkOnIsAFrameAndBelowIsNone) {
  EXPECT_TRUE(binding_.Open());
  for (const std::int32_t result : {INT32_MIN, -2, -1, 0, 1, INT32_MAX}) {
    canlib32_.read_result = result;
    canlib32_.frames.Play({{0x10, kFrameBytes, 8, 2, 0}});
    EXPECT_EQ(binding_.Read() != nullptr, result >= 0) << result;
  }
}

TEST(KvaserKeyFlags, TakeExactlyStandardAndExtended) {
  const KvaserCAN kvCan_u;
  EXPECT_EQ(KvaserBinding::KeyFlagsOf(kvCan_u, 2), (KeyFlags{0, 0, 0}));
  EXPECT_EQ(KvaserBinding::KeyFlagsOf(kvCan_u, 4), (KeyFlags{1, 1, 1}));
  for (const std::int32_t flag : {0, 1, 3, 5, 6, 0x20, 0x22, 0x42, 0x44, -1}) {
    EXPECT_EQ(KvaserBinding::KeyFlagsOf(kvCan_u, flag), (KeyFlags{{}, {}, 1})) << flag;
  }
}

}  // namespace
}  // namespace tolvane
