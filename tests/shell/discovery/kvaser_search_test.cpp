#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <span>
#include <string>

#include "shell/discovery/adapter_discovery.h"
#include "tests/shell/discovery/search_bed.h"

namespace tolvane {
namespace {

using testing::ElementsAre;

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

TEST_F(KvaserSearch, TheHandleServesForAllThatFollowsTheOpening) {
  Plug(std::nullopt);
  Plug("of channel 1");
  Plug("of handle 2");
  memory_.canlib32.channels = {-3, 2};
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_DevHandle(0), 2);
  EXPECT_EQ(kvCan_d_.Kvaser_DevChannel(0), 1);
  EXPECT_EQ(kvCan_d_.Kvaser_DevdName(0), u"of handle 2");
  const Lines lines = memory_.journal.Take();
  ASSERT_GE(lines.size(), 2u);
  EXPECT_THAT(Lines(lines.end() - 2, lines.end()), ElementsAre("canBusOff(2)", "canClose(2)"));
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
  memory_.canlib32.writes_on_refusal = true;
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
  for (std::int16_t i = 0; i < 30; ++i) {
    EXPECT_EQ(kvCan_d_.Kvaser_DevHandle(i), i);
    EXPECT_EQ(kvCan_d_.Kvaser_DevChannel(i), i);
    EXPECT_EQ(kvCan_d_.Kvaser_DevdName(i), u"Leaf");
  }
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

TEST_F(KvaserSearch, ResultsOfTheOtherCallsAreNotLookedAt) {
  Plug("Leaf");
  Plug("Memorator");
  Run();
  const Lines undisturbed = memory_.journal.Take();
  memory_.canlib32.writes_on_refusal = true;
  for (const char* call : {"canGetNumberOfChannels", "canBusOff", "canClose"}) {
    memory_.canlib32.call_results = {{call, -1}};
    kvCan_d_.Param_ALL_Clear();
    Run();
    EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 2) << call;
    EXPECT_EQ(memory_.journal.Take(), undisturbed) << call;
  }
}

TEST_F(KvaserSearch, ACountThatIsNotToldIsNone) {
  Plug("Leaf");
  memory_.canlib32.call_results = {{"canGetNumberOfChannels", -1}};
  Run();
  EXPECT_EQ(kvCan_d_.Kvaser_FindCount, 0);
  EXPECT_THAT(memory_.journal.Take(),
              ElementsAre("canInitializeLibrary()", "yield", "canGetNumberOfChannels()"));
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
