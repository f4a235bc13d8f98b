#include "shell/adapter_discovery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/memory/memory_platform.h"
#include "receive/adapters/narrow_text.h"

namespace tolvane {
namespace {

using testing::ElementsAre;

using Lines = std::vector<std::string>;

std::int64_t CountOf(const Lines& lines, const std::string& line) {
  return std::count(lines.begin(), lines.end(), line);
}

std::string Numbered(const std::string& prefix, int number) {
  return prefix + (number < 10 ? "0" : "") + std::to_string(number);
}

/// What a search meets: the libraries of a machine in memory, every call and yield in its journal.
class Search : public testing::Test {
 protected:
  Search() {
    memory_.events.OnYield([this] { memory_.journal.Note("yield"); });
  }
  platform::memory::MemoryPlatform memory_;
};

class CanusbSearch : public Search {
 protected:
  void Run() { Find_CANUSB_Adapters(memory_.Platform(), CAN_d_); }
  [[nodiscard]] Lines Found() const {
    Lines found;
    for (std::int16_t i = 1; i <= CAN_d_.CAN_USB_FindCount; ++i) {
      found.push_back(NarrowText(CAN_d_.CAN_USB_FindSerialNo(i)));
    }
    return found;
  }

  CAN_DB CAN_d_;
};

TEST_F(CanusbSearch, NothingPluggedInIsAskedForOnce) {
  Run();
  EXPECT_EQ(CAN_d_.CAN_USB_FindCount, 0);
  EXPECT_THAT(memory_.journal.Take(), ElementsAre("canusb_getFirstAdapter()"));
}

TEST_F(CanusbSearch, YieldsBeforeEachFurtherAdapter) {
  memory_.canusbdrv.serials = {"LAW00001", "LAW00002"};
  Run();
  EXPECT_THAT(Found(), ElementsAre("LAW00001", "LAW00002"));
  EXPECT_THAT(memory_.journal.Take(),
              ElementsAre("canusb_getFirstAdapter()", "yield", "canusb_getNextAdapter()", "yield",
                          "canusb_getNextAdapter()"));
}

TEST_F(CanusbSearch, SixCharactersEndTheSearch) {
  memory_.canusbdrv.serials = {"1234567", "123456", "LAW00003"};
  Run();
  EXPECT_THAT(Found(), ElementsAre("1234567"));
}

TEST_F(CanusbSearch, SixCharactersAtFirstFindNone) {
  memory_.canusbdrv.serials = {"123456", "LAW00002"};
  Run();
  EXPECT_EQ(CAN_d_.CAN_USB_FindCount, 0);
  EXPECT_THAT(memory_.journal.Take(), ElementsAre("canusb_getFirstAdapter()"));
}

TEST_F(CanusbSearch, TextWithoutAPositiveResultDoesNotCount) {
  using Limits = std::numeric_limits<std::int16_t>;
  for (const std::int16_t result : {std::int16_t{0}, std::int16_t{-1}, Limits::min()}) {
    memory_.canusbdrv.serials = {"LAW00001"};
    memory_.canusbdrv.search_result = result;
    Run();
    EXPECT_EQ(CAN_d_.CAN_USB_FindCount, 0) << result;
  }
}

TEST_F(CanusbSearch, AnyPositiveResultCounts) {
  memory_.canusbdrv.serials = {"LAW00001"};
  memory_.canusbdrv.search_result = std::numeric_limits<std::int16_t>::max();
  Run();
  EXPECT_EQ(CAN_d_.CAN_USB_FindCount, 1);
}

TEST_F(CanusbSearch, ThirtyAreTakenAndNoFurtherOneAskedFor) {
  for (int i = 1; i <= 31; ++i) memory_.canusbdrv.serials.push_back(Numbered("LAW000", i));
  Run();
  EXPECT_EQ(CAN_d_.CAN_USB_FindCount, 30);
  EXPECT_EQ(Found().back(), "LAW00030");
  EXPECT_EQ(CountOf(memory_.journal.Take(), "canusb_getNextAdapter()"), 29);
}

TEST_F(CanusbSearch, ExactlyThirtyAreAllTaken) {
  for (int i = 1; i <= 30; ++i) memory_.canusbdrv.serials.push_back(Numbered("LAW000", i));
  Run();
  EXPECT_EQ(CAN_d_.CAN_USB_FindCount, 30);
}

TEST_F(CanusbSearch, AFullBufferNeedsNoTerminator) {
  const std::string full(32, 'S');
  memory_.canusbdrv.serials = {full};
  Run();
  EXPECT_THAT(Found(), ElementsAre(full));
}

TEST_F(CanusbSearch, EveryNulIsRemoved) {
  memory_.canusbdrv.serials = {std::string("LAW\0\00012345", 10)};
  Run();
  EXPECT_THAT(Found(), ElementsAre("LAW12345"));
}

TEST_F(CanusbSearch, AnEarlierLongerSerialLeavesNothingBehind) {
  memory_.canusbdrv.serials = {"LAW0000012345", "LAW0002"};
  Run();
  EXPECT_THAT(Found(), ElementsAre("LAW0000012345", "LAW0002"));
}

TEST_F(CanusbSearch, BytesBeyondAsciiKeepTheirIdentityAndShowInTheCodePage) {
  // Half-width katakana in code page 932, and a lead byte without its second one.
  const std::string serial = "LAW\xB1\xB2\xB3-\x81";
  memory_.canusbdrv.serials = {serial};
  Run();
  EXPECT_THAT(Found(), ElementsAre(serial));
  const String line = CANUSB_Line(memory_.Platform(), CAN_d_, 1);
  EXPECT_EQ(line.substr(0, 14), u"CANUSB LAWｱｲｳ-");
}

class InterfaceSearch : public Search {
 protected:
  void Run() { Find_Interface_Ports(memory_.Platform(), IfCan_u_, IfCan_d_); }

  InterfaceCAN IfCan_u_;
  CAN_DB_Interface IfCan_d_;
};

TEST_F(InterfaceSearch, TriesPorts1To255AndClosesEachAnswer) {
  Run();
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindCount, 0);
  const Lines lines = memory_.journal.Take();
  ASSERT_EQ(lines.size(), 2u * 255);
  EXPECT_EQ(lines[0], "CanOpenPort(\"IFCAN1\")");
  EXPECT_EQ(lines[508], "CanOpenPort(\"IFCAN255\")");
  EXPECT_EQ(CountOf(lines, "CanClosePort(-1)"), 255);
}

TEST_F(InterfaceSearch, GapsAreSkippedAndTheNumbersKept) {
  memory_.IFCan.ports = {{.number = 2}, {.number = 5}};
  Run();
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindCount, 2);
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindNo(1), 2);
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindNo(2), 5);
  const Lines lines = memory_.journal.Take();
  const auto opened = std::find(lines.begin(), lines.end(), "CanOpenPort(\"IFCAN5\")");
  ASSERT_GE(lines.end() - opened, 3);
  EXPECT_THAT(Lines(opened + 1, opened + 3),
              ElementsAre("CanGetPortInformation(105)", "CanClosePort(105)"));
}

TEST_F(InterfaceSearch, StoresAllNineWordsAtThePlaceInTheList) {
  memory_.IFCan.ports = {{.number = 9, .information = {36, 4466, 4851, 8340, 3, 7, 11, 2, 1}}};
  Run();
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulStructLength(1), 36);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulVendorID(1), 4466);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulDeviceID(1), 4851);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulSubsystemID(1), 8340);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulRevisionID(1), 3);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulBoardID(1), 7);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulModelNumber(1), 11);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulChannelNumber(1), 2);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulPhysicalLayer(1), 1);
}

TEST_F(InterfaceSearch, APortWithoutInformationStaysWithZeros) {
  memory_.IFCan.ports = {{.number = 1,
                          .information = {36, 4466, 4851, 8340, 3, 7, 11, 2, 1},
                          .information_status = IfCan_u_.IFCAN_ERROR_NOT_READY}};
  Run();
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindCount, 1);
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindNo(1), 1);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulDeviceID(1), 0);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulPhysicalLayer(1), 0);
}

TEST_F(InterfaceSearch, TakesAll255AndNeverAsksForMore) {
  for (int n = 1; n <= 256; ++n) memory_.IFCan.ports.push_back({.number = n});
  Run();
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindCount, 255);
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindNo(255), 255);
  EXPECT_EQ(CountOf(memory_.journal.Take(), "CanOpenPort(\"IFCAN256\")"), 0);
}

TEST_F(InterfaceSearch, LineNamesModelAndPort) {
  memory_.IFCan.ports = {{.number = 2, .information = {36, 0, 4851, 8340, 0, 0, 0, 0, 0}},
                         {.number = 5, .information = {36, 0, 1, 2, 0, 0, 0, 0, 0}}};
  Run();
  EXPECT_EQ(Interface_Line(IfCan_d_, 1), u"Interface PCI-485120 port:2");
  EXPECT_EQ(Interface_Line(IfCan_d_, 2), u"Interface  port:5") << "unknown model";
}

class KvaserSearch : public Search {
 protected:
  void Run() { Find_Kvaser_Channels(memory_.Platform(), kvCan_u_, kvCan_d_); }

  /// A further channel, whose handle is its number; without a name its query fails.
  void Plug(std::optional<std::string> name) {
    const auto handle = static_cast<std::int32_t>(memory_.canlib32.channels.size());
    memory_.canlib32.channels.push_back(handle);
    if (!name) return;
    const auto bytes = std::as_bytes(std::span(*name));
    memory_.canlib32.channel_data[{handle, kNameItem}] = {bytes.begin(), bytes.end()};
  }

  static constexpr std::int32_t kNameItem = 13;
  KvaserCAN kvCan_u_;
  CAN_DB_Kvaser kvCan_d_;
};

TEST_F(KvaserSearch, OpensNamesAndClosesEachChannel) {
  Plug("Leaf");
  Plug("Memorator");
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 2);
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 1), u"Leaf");
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 2), u"Memorator");
  EXPECT_THAT(memory_.journal.Take(),
              ElementsAre("canInitializeLibrary()", "yield", "canGetNumberOfChannels()",
                          "canOpenChannel(0, 128)", "canGetChannelData(0, 13, 64)", "yield",
                          "canOpenChannel(1, 128)", "canGetChannelData(1, 13, 64)", "yield",
                          "canBusOff(0)", "canClose(0)", "canBusOff(1)", "canClose(1)"));
}

TEST_F(KvaserSearch, AChannelThatDoesNotOpenIsSkipped) {
  Plug(std::nullopt);
  Plug("Second");
  memory_.canlib32.channels[0] = -3;
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 1);
  EXPECT_EQ(kvCan_d_.Kvaser_DevHandle(0), 1);
  EXPECT_EQ(kvCan_d_.Kvaser_DevChannel(0), 1);
  EXPECT_EQ(kvCan_d_.Kvaser_DevdName(0), u"Second");
}

TEST_F(KvaserSearch, AChannelWithoutAReadableNameCounts) {
  Plug(std::nullopt);
  Plug("");
  Plug("Third");
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 3);
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 1), u"");
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 2), u"");
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 3), u"Third");
}

TEST_F(KvaserSearch, OnlyANegativeResultTakesTheNameAway) {
  Plug("Leaf");
  memory_.canlib32.data_result = -1;
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 1);
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 1), u"");

  kvCan_d_.Param_ALL_Clear();
  memory_.canlib32.data_result = 1;
  Run();
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 1), u"Leaf");
}

TEST_F(KvaserSearch, EveryNulOfANameIsRemoved) {
  Plug(std::string("Le\0af\0\0x", 8));
  Run();
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 1), u"Leafx");
}

TEST_F(KvaserSearch, AFullNameBufferNeedsNoTerminator) {
  Plug(std::string(64, 'N'));
  Run();
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 1), String(64, u'N'));
}

TEST_F(KvaserSearch, NamesAreInTheCodePage) {
  Plug("\xB1\xB2");
  Run();
  EXPECT_EQ(Kvaser_Line(kvCan_d_, 1), u"ｱｲ");
}

TEST_F(KvaserSearch, TakesThirtyOf31) {
  for (int i = 0; i < 31; ++i) Plug("Leaf");
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 30);
  EXPECT_EQ(kvCan_d_.Kvaser_DevChannel(29), 29);
  const Lines lines = memory_.journal.Take();
  EXPECT_EQ(CountOf(lines, "canOpenChannel(30, 128)"), 0);
  EXPECT_EQ(CountOf(lines, "canClose(29)"), 1);
}

TEST_F(KvaserSearch, TheLimitIsOfChannelNumbersNotOfSuccesses) {
  for (int i = 0; i < 31; ++i) Plug("Leaf");
  memory_.canlib32.channels[4] = -3;
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 29);
}

TEST_F(KvaserSearch, AWrongCountHarmsNothing) {
  Plug("Leaf");
  memory_.canlib32.channel_count = std::numeric_limits<std::int32_t>::max();
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 1);

  kvCan_d_.Param_ALL_Clear();
  memory_.canlib32.channel_count = -5;
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 0);
}

}  // namespace
}  // namespace tolvane
