#include "config/dialogs/number_input.h"

#include <gtest/gtest.h>

#include <limits>

namespace tolvane {
namespace {

constexpr std::int64_t kOutOfAnyRange = std::numeric_limits<std::int64_t>::max();

TEST(DecimalInput, TakesBlanksAroundOneSignAndOnePoint) {
  struct Row {
    StringView text;
    double value;
  };
  const Row rows[] = {{u"60", 60.0},     {u"  60\t", 60.0}, {u"　60　", 60.0}, {u"+1.5", 1.5},
                      {u"-2", -2.0},     {u".5", 0.5},      {u"5.", 5.0},      {u"007", 7.0},
                      {u"-.25 ", -0.25}, {u"0.0", 0.0}};
  for (const Row& row : rows) EXPECT_EQ(DecimalInput(row.text), row.value) << row.value;
}

TEST(DecimalInput, RefusesWhatIsNoPlainNumber) {
  const StringView rows[] = {u"",    u"   ", u"abc", u"1a",    u"1 2",  u"1.2.3", u".",   u"-",
                             u"--1", u"1e3", u"1E3", u"1,000", u"６０", u"😀",     u"&H1", u"1-"};
  for (const StringView row : rows) {
    EXPECT_FALSE(DecimalInput(row)) << testing::PrintToString(String(row));
  }
}

TEST(DecimalInput, TooManyDigitsGiveInfinityAndTooManyPlacesZero) {
  EXPECT_EQ(DecimalInput(String(400, u'9')), std::numeric_limits<double>::infinity());
  EXPECT_EQ(DecimalInput(u"-" + String(400, u'9')), -std::numeric_limits<double>::infinity());
  EXPECT_EQ(DecimalInput(u"0." + String(400, u'0') + u"1"), 0.0);
  EXPECT_EQ(DecimalInput(u"." + String(400, u'0') + u"1"), 0.0);
  EXPECT_EQ(DecimalInput(String(400, u'9') + u".0"), std::numeric_limits<double>::infinity());
}

TEST(WholeNumberInput, RoundsHalvesToEvenBeforeTheLimits) {
  EXPECT_EQ(WholeNumberInput(u"0.5", 1, 3600), std::nullopt);
  EXPECT_EQ(WholeNumberInput(u"1.5", 1, 3600), 2);
  EXPECT_EQ(WholeNumberInput(u"2.5", 1, 3600), 2);
  EXPECT_EQ(WholeNumberInput(u"3600.5", 1, 3600), 3600);
  EXPECT_EQ(WholeNumberInput(u"3600.6", 1, 3600), std::nullopt);
  EXPECT_EQ(WholeNumberInput(String(400, u'9'), 1, 3600), std::nullopt);
}

TEST(HexInput, ReadsDigitsOfEitherCaseIntoASigned32BitValue) {
  EXPECT_EQ(HexInput(u"7ff"), 0x7FF);
  EXPECT_EQ(HexInput(u"89abcdef"), std::int64_t{-0x76543211});
  EXPECT_EQ(HexInput(u"01234567"), 0x01234567);
  EXPECT_EQ(HexInput(u"89ABCDEF"), std::int64_t{-0x76543211});
  EXPECT_EQ(HexInput(u" 1FFFFFFF "), 0x1FFFFFFF);
  EXPECT_EQ(HexInput(u"00000000000000000000000000000000000000AB"), 0xAB);
  EXPECT_EQ(HexInput(u"80000000"), std::int64_t{std::numeric_limits<std::int32_t>::min()});
  EXPECT_EQ(HexInput(u"FFFFFFFF"), -1);
}

TEST(HexInput, MoreThanEightSignificantDigitsAreOutsideEveryRange) {
  EXPECT_EQ(HexInput(u"100000000"), kOutOfAnyRange);
  EXPECT_EQ(HexInput(String(40, u'F')), kOutOfAnyRange);
}

TEST(HexInput, RefusesWhatIsNoHexadecimalNumber) {
  for (const StringView row : {u"", u"  ", u"/", u":", u"@", u"G", u"`", u"g", u"xyz", u"-1",
                               u"&H1", u"1 2", u"７ＦＦ", u"😀", u"0x1"}) {
    EXPECT_FALSE(HexInput(row)) << testing::PrintToString(String(row));
  }
}

}  // namespace
}  // namespace tolvane
