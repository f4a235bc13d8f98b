#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/byte_text.h"
#include "shell/discovery/adapter_discovery.h"
#include "tests/shell/discovery/search_bed.h"

namespace tolvane {
namespace {

using testing::ElementsAre;

std::string Numbered(const std::string& prefix, int number) {
  return prefix + (number < 10 ? "0" : "") + std::to_string(number);
}

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
  memory_.canusbdrv.writes_on_refusal = true;
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

// A library writes its text and one NUL, and all NUL are taken out of what is in the buffer.
TEST_F(CanusbSearch, AnEarlierLongerSerialLeavesNothingBehind) {
  memory_.canusbdrv.serials = {"LAW0000012345", "LAW0002", "LAW00003"};
  Run();
  EXPECT_THAT(Found(), ElementsAre("LAW0000012345", "LAW0002", "LAW00003"));
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

}  // namespace
}  // namespace tolvane
