#include "receive/adapters/interface_binding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>

#include "platform/memory/vendor/ifcan_library.h"
#include "tests/receive/adapters/binding_bed.h"

namespace tolvane {
namespace {

class InterfaceTest : public BindingTest {
 protected:
  InterfaceTest() {
    IFCan_.ports = {{.number = 1}, {.number = 12}};
    IfCan_d_.Interface_CAN_SelectNo = 1;
  }

  platform::memory::IfcanLibrary IFCan_{journal_};
  InterfaceCAN IfCan_u_;
  CAN_DB_Interface IfCan_d_;
  InterfaceBinding binding_{IFCan_, IfCan_u_, IfCan_d_};
};

TEST_F(InterfaceTest, WritesTheRateCodeOfEachBitRateItHas) {
  const std::map<std::int32_t, std::string> kCodes = {{0, "39"},   {2, "295"},  {3, "570"},
                                                      {4, "2358"}, {5, "7459"}, {8, "1338"}};
  for (const auto& [t_bitRate, code] : kCodes) {
    EXPECT_TRUE(binding_.TakeRate(t_bitRate));
    EXPECT_TRUE(binding_.Open());
    binding_.Configure(device_);
    EXPECT_EQ(journal_.Take(), (Calls{"CanOpenPort(\"IFCAN1\")", "CanGetConfig(101)",
                                      "CanSetConfig(101, 0, 11, 12, 13, 14, 15, " + code + ")"}));
  }
}

TEST_F(InterfaceTest, RefusesTheRatesItLacks) { ExpectRates(binding_, {0, 2, 3, 4, 5, 8}); }

TEST_F(InterfaceTest, SilentModeChoosesTheModeWord) {
  const std::map<std::int32_t, std::string> kModes = {{0, "0"}, {1, "1"}, {2, "7"}, {-1, "7"}};
  EXPECT_TRUE(binding_.TakeRate(2));
  for (const auto& [t_silent_mode, mode] : kModes) {
    device_.t_silent_mode = t_silent_mode;
    EXPECT_TRUE(binding_.Open());
    journal_.Clear();
    binding_.Configure(device_);
    EXPECT_EQ(journal_.Take(), Calls{"CanSetConfig(101, " + mode + ", 11, 12, 13, 14, 15, 295)"});
  }
}

TEST_F(InterfaceTest, OpensThePlaceInTheFoundListNotThePortsOwnNumber) {
  IfCan_d_.Interface_CAN_FindNo(2, 12);
  IfCan_d_.Interface_CAN_SelectNo = 2;
  EXPECT_FALSE(binding_.Open());
  EXPECT_EQ(journal_.Take(),
            (Calls{"CanOpenPort(\"IFCAN2\")", "CanGetConfig(-1)", "CanClosePort(-1)"}));
  EXPECT_EQ(IfCan_d_.Interface_CAN_Handle, u"-1");
}

TEST_F(InterfaceTest, PortWhoseConfigurationIsRefusedIsClosedAndForgotten) {
  IFCan_.get_config_status = 1;
  EXPECT_FALSE(binding_.Open());
  EXPECT_EQ(IfCan_d_.Interface_CAN_Handle, u"-1");
  EXPECT_EQ(journal_.Take(),
            (Calls{"CanOpenPort(\"IFCAN1\")", "CanGetConfig(101)", "CanClosePort(101)"}));
  binding_.Close();
  EXPECT_EQ(journal_.Take(), (Calls{"CanDeactivate(-1)", "CanClosePort(-1)"}));
}

// Whatever the configuration says, a handle of -1 is none.
TEST_F(InterfaceTest, HandleOfMinusOneIsAFailureThoughTheConfigurationWasRead) {
  IFCan_.ports = {{.number = -1 - IFCan_.kHandleBase}};
  IfCan_d_.Interface_CAN_SelectNo = -1 - IFCan_.kHandleBase;
  EXPECT_FALSE(binding_.Open());
  EXPECT_EQ(journal_.Take(), (Calls{"CanOpenPort(\"IFCAN-101\")", "CanGetConfig(-1)"}));
}

TEST_F(InterfaceTest, HandleIsKeptAsDecimalText) {
  EXPECT_TRUE(binding_.Open());
  EXPECT_EQ(IfCan_d_.Interface_CAN_Handle, u"101");
  journal_.Clear();
  IfCan_d_.Interface_CAN_Handle = u"42";
  binding_.GoOnBus();
  EXPECT_EQ(journal_.Take(), Calls{"CanActivate(42)"});
}

TEST_F(InterfaceTest, CloseGivesTheLibrarysStatus) {
  EXPECT_TRUE(binding_.Open());
  IFCan_.close_status = 77;
  EXPECT_EQ(binding_.Close(), 77);
}

TEST_F(InterfaceTest, ReadsOneRecordWithACountOfOne) {
  EXPECT_TRUE(binding_.Open());
  journal_.Clear();
  IFCan_.note_reads = true;
  IFCan_.frames.Play({{0x1208, 99, INT32_MIN | 0x123, kFrameBytes, 2'345'999}});
  const ReceivedFrame* frame = binding_.Read();
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->id, 0x123);
  EXPECT_EQ(frame->can_DLC, 0x1208);
  EXPECT_FALSE(frame->plain_standard);
  EXPECT_EQ(frame->device_time, 2345);
  EXPECT_EQ(frame->key, (KeyFlags{1, 1, 1}));
  EXPECT_TRUE(std::equal(kFrameBytes.begin(), kFrameBytes.end(), frame->can_DATA.begin()));
  EXPECT_EQ(binding_.Read(), nullptr);
  EXPECT_EQ(journal_.Take(), (Calls{"CanReceiveMessage(101, 1)", "CanReceiveMessage(101, 1)"}));
}

TEST_F(InterfaceTest, TimestampIsDividedTowardsZero) {
  const std::map<std::int32_t, std::int32_t> kTimes = {
      {-1999, -1}, {-999, 0}, {999, 0}, {1000, 1}, {INT32_MIN, -2147483}, {INT32_MAX, 2147483}};
  for (const auto& [timestamp, milliseconds] : kTimes) {
    IFCan_.frames.Play({{8, 0, 0x123, kFrameBytes, timestamp}});
    const ReceivedFrame* frame = binding_.Read();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->device_time, milliseconds) << timestamp;
    EXPECT_TRUE(frame->plain_standard);
    EXPECT_EQ(frame->key, (KeyFlags{0, 0, 0}));
  }
}

TEST_F(InterfaceTest, AnyStatusButSuccessIsNoFrame) {
  for (const std::int32_t status : {1, -1, INT32_MIN}) {
    IFCan_.empty_read_status = status;
    EXPECT_EQ(binding_.Read(), nullptr) << status;
  }
}

}  // namespace
}  // namespace tolvane
