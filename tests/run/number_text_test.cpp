#include "run/number_text.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <utility>

namespace tolvane {
namespace {

TEST(DecimalText, DoubleHasAtMostFifteenDigitsAndNoTrailingZeros) {
  struct Row {
    double value;
    StringView text;
  };
  const Row rows[] = {{0.0, u"0"},
                      {-0.0, u"0"},
                      {100.0, u"100"},
                      {1500.0 / 1000.0, u"1.5"},
                      {-2.25, u"-2.25"},
                      {0.1 + 0.2, u"0.3"},
                      {1.0 / 3.0, u"0.333333333333333"},
                      {12345678.9, u"12345678.9"},
                      {999999999999999.0, u"999999999999999"},
                      {1e15, u"1E+15"},
                      {-1234567890123456.0, u"-1.23456789012346E+15"},
                      {0.0001, u"0.0001"},
                      {0.00001, u"1E-05"},
                      {1.4e-14, u"1.4E-14"},
                      {5e-324, u"4.94065645841247E-324"},
                      {std::numeric_limits<double>::max(), u"1.79769313486232E+308"},
                      {std::numeric_limits<double>::infinity(), u"0"},
                      {std::nan(""), u"0"}};
  for (const Row& row : rows) EXPECT_EQ(DecimalText(row.value).View(), row.text) << row.value;
}

/// The general form as the standard library makes it, for numbers that need no exponent.
String ReferenceText(double value) {
  char digits[40];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 15).ptr;
  return String(digits, end);
}

TEST(DecimalText, TimesKeepFifteenDigitsExactlyWithHalvesToEven) {
  std::mt19937_64 random(20261120);
  for (int i = 0; i < 200'000; ++i) {
    const std::uint64_t bits = random();
    const double microseconds = static_cast<double>(bits >> 24) / 1000.0;
    const double any = std::ldexp(1.0 + static_cast<double>(bits >> 12) * 0x1p-52,
                                  static_cast<int>(bits % 42) - 1);
    for (const double value : {microseconds, std::nextafter(microseconds, 0.0), any}) {
      if (value < 0.001) continue;
      ASSERT_EQ(String(DecimalText(value).View()), ReferenceText(value)) << value;
    }
  }
  const double longest[] = {999999999999.999, std::nextafter(999999999999.999, 0.0),
                            1000000000000.001, 1099511627775.999};
  for (const double value : longest) {
    EXPECT_EQ(String(DecimalText(value).View()), ReferenceText(value)) << value;
  }
  const double ties[] = {1000000000000.125, 1000000000000.375, 1000000000000.875,
                         999999999999.9375, 100000000000.0625, 549755813888.00048828125};
  for (const double value : ties) {
    EXPECT_EQ(String(DecimalText(value).View()), ReferenceText(value)) << value;
  }
}

TEST(DecimalText, RoundingCanReachTheWholeNumber) {
  EXPECT_EQ(DecimalText(std::nextafter(10.0, 0.0)).View(), u"10");
  EXPECT_EQ(DecimalText(std::nextafter(1000000.0, 0.0)).View(), u"1000000");
  EXPECT_EQ(DecimalText(99999.9999999999).View(), u"99999.9999999999");
  EXPECT_EQ(DecimalText(99999.99999999999).View(), u"100000");
  EXPECT_EQ(DecimalText(std::nextafter(0x1p40, 0.0)).View(), u"1099511627776");
  EXPECT_EQ(DecimalText(1.00000000000001).View(), u"1.00000000000001");
}

TEST(DecimalText, WholeNumbersReachBothEndsOfTheRange) {
  EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::min()).View(), u"-9223372036854775808");
  EXPECT_EQ(DecimalText(std::int64_t{20001}).View(), u"20001");
}

TEST(DecimalText, CurrencyPrintsFourDecimalsWithoutTrailingZeros) {
  EXPECT_EQ(DecimalText(Currency{1002500}).View(), u"100.25");
  EXPECT_EQ(DecimalText(Currency{1000000}).View(), u"100");
  EXPECT_EQ(DecimalText(Currency{1}).View(), u"0.0001");
  EXPECT_EQ(DecimalText(Currency{-15000}).View(), u"-1.5");
  EXPECT_EQ(DecimalText(Currency{std::numeric_limits<std::int64_t>::min()}).View(),
            u"-922337203685477.5808");
}

TEST(HexText, IsUpperCaseAndUnpadded) {
  EXPECT_EQ(HexText(0).View(), u"0");
  EXPECT_EQ(HexText(0x1ABCDEF).View(), u"1ABCDEF");
  EXPECT_EQ(HexText(-1).View(), u"FFFFFFFF");
  EXPECT_EQ(HexByteText(0x0A).View(), u"0A");
  EXPECT_EQ(HexByteText(0xA0).View(), u"A0");
}

TEST(PaddedText, HasZerosInFrontAndIsNeverCut) {
  EXPECT_EQ(PaddedText(0, 2).View(), u"00");
  EXPECT_EQ(PaddedText(12, 2).View(), u"12");
  EXPECT_EQ(PaddedText(2026, 4).View(), u"2026");
  EXPECT_EQ(PaddedText(1000, 3).View(), u"1000");
}

TEST(HexID11Text, PadsToThreeDigits) {
  EXPECT_EQ(HexID11Text(0).View(), u"000");
  EXPECT_EQ(HexID11Text(0x00F).View(), u"00F");
  EXPECT_EQ(HexID11Text(0x010).View(), u"010");
  EXPECT_EQ(HexID11Text(0x0FF).View(), u"0FF");
  EXPECT_EQ(HexID11Text(0x100).View(), u"100");
  EXPECT_EQ(HexID11Text(0x7FF).View(), u"7FF");
  EXPECT_EQ(HexID11Text(0x1FFFFFFF).View(), u"1FFFFFFF");
  EXPECT_EQ(HexID11Text(-1).View(), u"00FFFFFFFF");
}

TEST(HexText, HasZerosInFrontUpToItsDigitsAndIsNeverCut) {
  EXPECT_EQ(HexText(0, 5).View(), u"00000");
  EXPECT_EQ(HexText(0x1AB, 5).View(), u"001AB");
  EXPECT_EQ(HexText(0xABCDE, 5).View(), u"ABCDE");
  EXPECT_EQ(HexText(0xABCDEF, 5).View(), u"ABCDEF");
}

TEST(HexID29Text, PadsToEightDigits) {
  EXPECT_EQ(HexID29Text(0).View(), u"00000000");
  EXPECT_EQ(HexID29Text(0xF).View(), u"0000000F");
  EXPECT_EQ(HexID29Text(0x10).View(), u"00000010");
  EXPECT_EQ(HexID29Text(0xFFFFFFF).View(), u"0FFFFFFF");
  EXPECT_EQ(HexID29Text(0x10000000).View(), u"10000000");
  EXPECT_EQ(HexID29Text(-1).View(), u"0000000FFFFFFFF");
}

TEST(HexSettingText, ZeroAloneHasOneDigit) {
  EXPECT_EQ(HexSettingText(0).View(), u"0");
  EXPECT_EQ(HexSettingText(1).View(), u"001");
}

TEST(RoundHalfToEven, TakesTheEvenNeighbourOfAHalf) {
  EXPECT_EQ(RoundHalfToEven(0.5), 0.0);
  EXPECT_EQ(RoundHalfToEven(1.5), 2.0);
  EXPECT_EQ(RoundHalfToEven(2.5), 2.0);
  EXPECT_EQ(RoundHalfToEven(-0.5), 0.0);
  EXPECT_EQ(RoundHalfToEven(-1.5), -2.0);
  EXPECT_EQ(RoundHalfToEven(2.5000001), 3.0);
  EXPECT_EQ(RoundHalfToEven(-2.5000001), -3.0);
}

// A vendor's library may leave another mode behind than it found.
TEST(RoundHalfToEven, ComesOutAlikeInEveryRoundingMode) {
  const std::pair<double, double> kCases[] = {
      {0.5, 0.0}, {1.5, 2.0},   {2.5, 2.0},   {-1.5, -2.0},  {2.4, 2.0},
      {2.6, 3.0}, {-2.4, -2.0}, {-2.6, -3.0}, {-1e-20, 0.0}, {0.49999999999999994, 0.0}};
  for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    for (const auto& [value, rounded] : kCases) {
      std::fesetround(mode);
      const double result = RoundHalfToEven(value);
      std::fesetround(FE_TONEAREST);
      EXPECT_EQ(result, rounded) << value << " in mode " << mode;
    }
  }
}

TEST(ToCurrency, RoundsToFourDecimalsAndStaysInRange) {
  EXPECT_EQ(ToCurrency(100.25).ten_thousandths, 1002500);
  EXPECT_EQ(ToCurrency(0.03125).ten_thousandths, 312);
  EXPECT_EQ(ToCurrency(0.09375).ten_thousandths, 938);
  EXPECT_EQ(ToCurrency(1e300).ten_thousandths, std::numeric_limits<std::int64_t>::max());
  // As a double one beyond the highest.
  EXPECT_EQ(ToCurrency(922337203685477.5808).ten_thousandths,
            std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(ToCurrency(-1e300).ten_thousandths, std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(ToCurrency(std::nan("")).ten_thousandths, std::numeric_limits<std::int64_t>::min());
}

}  // namespace
}  // namespace tolvane
