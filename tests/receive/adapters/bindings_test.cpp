#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "platform/memory/canlib_library.h"
#include "platform/memory/canusb_library.h"
#include "platform/memory/ifcan_library.h"
#include "platform/memory/journal.h"
#include "receive/adapters/canusb_binding.h"
#include "receive/adapters/handle_text.h"
#include "receive/adapters/interface_binding.h"
#include "receive/adapters/kvaser_binding.h"
#include "receive/adapters/narrow_text.h"

namespace tolvane {
namespace {

using Calls = std::vector<std::string>;
constexpr std::array<std::uint8_t, 8> kData = {1, 2, 3, 4, 5, 6, 7, 8};

class BindingTest : public testing::Test {
 protected:
  platform::memory::Journal journal_;
  ELM327_Info device_{u"C:\\Tolvane"};
};

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
    EXPECT_TRUE(binding_.Open(device_));
    EXPECT_EQ(journal_.Take(), Calls{"canusb_Open(\"LWR12345\", \"" + rate + "\", 0, -1, 1)"});
  }
}

TEST_F(CanusbTest, AnUnknownRateAfterAKnownOneIsEmptyAgain) {
  EXPECT_TRUE(binding_.TakeRate(2));
  EXPECT_TRUE(binding_.TakeRate(99));
  EXPECT_TRUE(binding_.Open(device_));
  EXPECT_EQ(journal_.Take(), Calls{"canusb_Open(\"\", \"\", 0, -1, 1)"});
}

TEST_F(CanusbTest, HandleOfZeroOrLessIsAFailure) {
  for (const std::int32_t handle : {0, -2, INT32_MIN}) {
    canusbdrv_.open_result = handle;
    EXPECT_FALSE(binding_.Open(device_)) << handle;
    EXPECT_EQ(CAN_d_.CAN_USB_Handle, handle);
  }
  canusbdrv_.open_result = 17;
  EXPECT_TRUE(binding_.Open(device_));
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
  canusbdrv_.frames.Play({{-7, 59999, 128, 255, kData}});
  const ReceivedFrame* frame = binding_.Read();
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->id, -7);
  EXPECT_EQ(frame->device_time, 59999);
  EXPECT_EQ(frame->flag, 128);
  EXPECT_EQ(frame->can_DLC, 255);
  EXPECT_TRUE(std::equal(kData.begin(), kData.end(), frame->can_DATA.begin()));
  EXPECT_EQ(binding_.Read(), nullptr);
  EXPECT_EQ(journal_.Take(), (Calls{"canusb_Read(5)", "canusb_Read(5)"}));
}

TEST_F(CanusbTest, ReadResultOfZeroOrLessIsNoFrame) {
  for (const std::int32_t result : {0, -1, -7, INT32_MIN}) {
    canusbdrv_.empty_read_result = result;
    EXPECT_EQ(binding_.Read(), nullptr) << result;
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
  } kCases[] = {{0, {0, 0, 0}},    {1, {-1, 0, 0}},   {63, {-1, 0, 0}},  {64, {-1, 0, 0}},
                {65, {-1, 1, 1}},  {127, {-1, 1, 1}}, {128, {1, 1, 1}},  {129, {-1, 1, 1}},
                {191, {-1, 1, 1}}, {192, {-1, 2, 2}}, {193, {-1, 2, 2}}, {255, {-1, 2, 2}}};
  for (const auto& row : kCases) {
    EXPECT_EQ(CanusbBinding::KeyFlagsOf(static_cast<std::uint8_t>(row.flags)), row.key)
        << row.flags;
  }
}

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
    EXPECT_TRUE(binding_.Open(device_));
    binding_.Configure(device_);
    EXPECT_EQ(journal_.Take(), (Calls{"CanOpenPort(\"IFCAN1\")", "CanGetConfig(101)",
                                      "CanSetConfig(101, 0, 11, 12, 13, 14, 15, " + code + ")"}));
  }
}

TEST_F(InterfaceTest, RefusesTheRatesItLacks) {
  for (const std::int32_t t_bitRate : {1, 6, 7, 9, -1, INT32_MAX, INT32_MIN}) {
    EXPECT_FALSE(binding_.TakeRate(t_bitRate)) << t_bitRate;
  }
  EXPECT_EQ(journal_.Take(), Calls{});
}

TEST_F(InterfaceTest, SilentModeChoosesTheModeWord) {
  const std::map<std::int32_t, std::string> kModes = {{0, "0"}, {1, "1"}, {2, "7"}, {-1, "7"}};
  EXPECT_TRUE(binding_.TakeRate(2));
  for (const auto& [t_silent_mode, mode] : kModes) {
    device_.t_silent_mode = t_silent_mode;
    EXPECT_TRUE(binding_.Open(device_));
    journal_.Clear();
    binding_.Configure(device_);
    EXPECT_EQ(journal_.Take(), Calls{"CanSetConfig(101, " + mode + ", 11, 12, 13, 14, 15, 295)"});
  }
}

TEST_F(InterfaceTest, OpensThePlaceInTheFoundListNotThePortsOwnNumber) {
  IfCan_d_.Interface_CAN_FindNo(2, 12);
  IfCan_d_.Interface_CAN_SelectNo = 2;
  EXPECT_FALSE(binding_.Open(device_));
  EXPECT_EQ(journal_.Take(),
            (Calls{"CanOpenPort(\"IFCAN2\")", "CanGetConfig(-1)", "CanClosePort(-1)"}));
  EXPECT_EQ(IfCan_d_.Interface_CAN_Handle, u"-1");
}

TEST_F(InterfaceTest, PortWhoseConfigurationIsRefusedIsClosedAndForgotten) {
  IFCan_.get_config_status = 1;
  EXPECT_FALSE(binding_.Open(device_));
  EXPECT_EQ(IfCan_d_.Interface_CAN_Handle, u"-1");
  EXPECT_EQ(journal_.Take(),
            (Calls{"CanOpenPort(\"IFCAN1\")", "CanGetConfig(101)", "CanClosePort(101)"}));
  binding_.Close();
  EXPECT_EQ(journal_.Take(), (Calls{"CanDeactivate(-1)", "CanClosePort(-1)"}));
}

TEST_F(InterfaceTest, HandleIsKeptAsDecimalText) {
  EXPECT_TRUE(binding_.Open(device_));
  EXPECT_EQ(IfCan_d_.Interface_CAN_Handle, u"101");
  journal_.Clear();
  IfCan_d_.Interface_CAN_Handle = u"42";
  binding_.GoOnBus();
  EXPECT_EQ(journal_.Take(), Calls{"CanActivate(42)"});
}

TEST_F(InterfaceTest, CloseGivesTheLibrarysStatus) {
  EXPECT_TRUE(binding_.Open(device_));
  IFCan_.close_status = 77;
  EXPECT_EQ(binding_.Close(), 77);
}

TEST_F(InterfaceTest, ReadsOneRecordWithACountOfOne) {
  EXPECT_TRUE(binding_.Open(device_));
  journal_.Clear();
  IFCan_.note_reads = true;
  IFCan_.frames.Play({{0x1208, 99, INT32_MIN | 0x123, kData, 2'345'999}});
  const ReceivedFrame* frame = binding_.Read();
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->id, INT32_MIN | 0x123);
  EXPECT_EQ(frame->can_DLC, 0x1208);
  EXPECT_EQ(frame->flag, 1);
  EXPECT_EQ(frame->device_time, 2345);
  EXPECT_EQ(frame->key, (KeyFlags{1, 1, 1}));
  EXPECT_TRUE(std::equal(kData.begin(), kData.end(), frame->can_DATA.begin()));
  EXPECT_EQ(binding_.Read(), nullptr);
  EXPECT_EQ(journal_.Take(), (Calls{"CanReceiveMessage(101, 1)", "CanReceiveMessage(101, 1)"}));
}

TEST_F(InterfaceTest, TimestampIsDividedTowardsZero) {
  const std::map<std::int32_t, std::int32_t> kTimes = {
      {-1999, -1}, {-999, 0}, {999, 0}, {1000, 1}, {INT32_MIN, -2147483}, {INT32_MAX, 2147483}};
  for (const auto& [timestamp, milliseconds] : kTimes) {
    IFCan_.frames.Play({{8, 0, 0x123, kData, timestamp}});
    const ReceivedFrame* frame = binding_.Read();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->device_time, milliseconds) << timestamp;
    EXPECT_EQ(frame->flag, 0);
    EXPECT_EQ(frame->key, (KeyFlags{0, 0, 0}));
  }
}

TEST_F(InterfaceTest, AnyStatusButSuccessIsNoFrame) {
  for (const std::int32_t status : {1, -1, INT32_MIN}) {
    IFCan_.empty_read_status = status;
    EXPECT_EQ(binding_.Read(), nullptr) << status;
  }
}

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
    EXPECT_TRUE(binding_.Open(device_));
    binding_.Configure(device_);
    EXPECT_EQ(journal_.Take(),
              (Calls{"canOpenChannel(1, 128)", "canSetBusParams(3, " + rate + ", 5, 2, 1, 1, 0)",
                     "canSetBusOutputControl(3, 4)"}));
  }
}

TEST_F(KvaserTest, RefusesTheRatesItLacks) {
  for (const std::int32_t t_bitRate : {1, 6, 9, -1, INT32_MAX, INT32_MIN}) {
    EXPECT_FALSE(binding_.TakeRate(t_bitRate)) << t_bitRate;
  }
}

TEST_F(KvaserTest, SilentModeChoosesTheDriverType) {
  const std::map<std::int32_t, Calls> kDrivers = {{0, {"canSetBusOutputControl(3, 4)"}},
                                                  {1, {"canSetBusOutputControl(3, 1)"}},
                                                  {2, {}},
                                                  {-1, {}}};
  EXPECT_TRUE(binding_.TakeRate(2));
  EXPECT_TRUE(binding_.Open(device_));
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
  EXPECT_TRUE(binding_.Open(device_));
  EXPECT_EQ(journal_.Take(), Calls{"canOpenChannel(1, 128)"});
  kvCan_d_.KvCAN_SelectNo = 2;
  EXPECT_TRUE(binding_.Open(device_));
  EXPECT_EQ(journal_.Take(), Calls{"canOpenChannel(2, 128)"});
  EXPECT_EQ(kvCan_d_.KvCAN_Handle, u"8");
}

TEST_F(KvaserTest, HandleZeroIsAHandleAndANegativeOneAFailure) {
  canlib32_.channels = {0, 0};
  EXPECT_TRUE(binding_.Open(device_));
  EXPECT_EQ(kvCan_d_.KvCAN_Handle, u"0");
  canlib32_.channels = {0, -3};
  kvCan_d_.KvCAN_Handle = u"6";
  EXPECT_FALSE(binding_.Open(device_));
  EXPECT_EQ(kvCan_d_.KvCAN_Handle, u"6");
}

TEST_F(KvaserTest, GoesOnBusAndClosesBusFirst) {
  EXPECT_TRUE(binding_.Open(device_));
  journal_.Clear();
  binding_.GoOnBus();
  EXPECT_EQ(binding_.Close(), 0);
  EXPECT_EQ(journal_.Take(), (Calls{"canBusOn(3)", "canBusOff(3)", "canClose(3)"}));
}

TEST_F(KvaserTest, ResultsOfTheSetUpAreNotLookedAt) {
  canlib32_.call_result = -8;
  EXPECT_TRUE(binding_.Open(device_));
  binding_.Configure(device_);
  binding_.GoOnBus();
  EXPECT_EQ(binding_.Close(), 0);
}

TEST_F(KvaserTest, ReadsOneFrame) {
  EXPECT_TRUE(binding_.Open(device_));
  journal_.Clear();
  canlib32_.note_reads = true;
  canlib32_.frames.Play({{0x18FF0001, kData, -1, 4, -5}});
  const ReceivedFrame* frame = binding_.Read();
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->id, 0x18FF0001);
  EXPECT_EQ(frame->can_DLC, -1);
  EXPECT_EQ(frame->flag, 4);
  EXPECT_EQ(frame->device_time, -5);
  EXPECT_TRUE(std::equal(kData.begin(), kData.end(), frame->can_DATA.begin()));
  EXPECT_EQ(binding_.Read(), nullptr);
  EXPECT_EQ(journal_.Take(), (Calls{"canRead(3)", "canRead(3)"}));
}

TEST(KvaserKeyFlags, TakeExactlyStandardAndExtended) {
  const KvaserCAN kvCan_u;
  EXPECT_EQ(KvaserBinding::KeyFlagsOf(kvCan_u, 2), (KeyFlags{0, 0, 0}));
  EXPECT_EQ(KvaserBinding::KeyFlagsOf(kvCan_u, 4), (KeyFlags{1, 1, 1}));
  for (const std::int32_t flag : {0, 1, 3, 5, 6, 0x20, 0x22, 0x42, 0x44, -1}) {
    EXPECT_EQ(KvaserBinding::KeyFlagsOf(kvCan_u, flag), (KeyFlags{-1, -1, 1})) << flag;
  }
}

TEST(HandleText, GoesThereAndBack) {
  const struct {
    std::int32_t handle;
    StringView text;
  } kHandles[] = {
      {0, u"0"}, {-1, u"-1"}, {42, u"42"}, {INT32_MAX, u"2147483647"}, {INT32_MIN, u"-2147483648"}};
  for (const auto& row : kHandles) {
    EXPECT_EQ(HandleText(row.handle), row.text);
    EXPECT_EQ(HandleNumber(row.text), row.handle);
  }
}

TEST(NarrowText, GoesThereAndBackByteForByte) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  EXPECT_EQ(NarrowText(WideText(bytes)), bytes);
  EXPECT_EQ(WideText("\x83\x41"), u"\x83\x41");
}

}  // namespace
}  // namespace tolvane
