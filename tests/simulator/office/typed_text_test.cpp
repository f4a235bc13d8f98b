#include "simulator/office/typed_text.h"

#include <gtest/gtest.h>

#include <ostream>

#include "platform/utf8.h"

namespace tolvane::office {
namespace {

struct Row {
  StringView text;
  CellValue value;
  int number_format = 0;
};

std::ostream& operator<<(std::ostream& stream, const Row& row) {
  return stream << ToUtf8(row.text);
}

class OfficeTypedText : public testing::TestWithParam<Row> {};

TEST_P(OfficeTypedText, BecomesWhatASpreadsheetProgramMakesOfIt) {
  const Typed typed = ParseTyped(GetParam().text);
  EXPECT_FALSE(typed.is_formula);
  ASSERT_EQ(typed.value.index(), GetParam().value.index());
  if (const double* const number = std::get_if<double>(&GetParam().value)) {
    EXPECT_DOUBLE_EQ(std::get<double>(typed.value), *number);
  } else {
    EXPECT_EQ(typed.value, GetParam().value);
  }
  EXPECT_EQ(typed.number_format, GetParam().number_format);
}

String Text(const char16_t* text) { return text; }

const Row kNumbers[] = {
    {u"7E8", 7e8, 11},
    {u"1E5", 1e5, 11},
    {u"1e-2", 0.01, 11},
    {u"1E-999", 0.0, 11},
    {u"001", 1.0},
    {u"00", 0.0},
    {u"00000001", 1.0},
    {u"12.125", 12.125},
    {u".5", 0.5},
    {u"5.", 5.0},
    {u" -3 ", -3.0},
    {u"+4", 4.0},
    {u"(7)", -7.0},
    {u"$8", 8.0},
    {u"1,234,567", 1234567.0, 3},
    {u"1,234.5", 1234.5, 4},
    {u"50%", 0.5, 9},
    {u"12.5%", 0.125, 10},
};
const Row kDatesAndTimes[] = {
    {u"2024/01/02", 45293.0, 14},
    {u"2024-1-2", 45293.0, 14},
    {u"24/1/2", 45293.0, 14},
    {u"99/12/31", 36525.0, 14},
    {u"3:00", 0.125, 20},
    {u"6:00:00", 0.25, 21},
    {u"2024/01/02 12:00:00", 45293.5, 22},
};
const Row kOthers[] = {
    {u"TRUE", true},
    {u"false", false},
    {u"", Text(u"")},
    {u"'001", Text(u"001")},
    {u"0E", Text(u"0E")},
    {u"1A", Text(u"1A")},
    {u"E5", Text(u"E5")},
    {u"7E8 ", 7e8, 11},
    {u"7 E8", Text(u"7 E8")},
    {u"1E999", Text(u"1E999")},
    {u"1,23", Text(u"1,23")},
    {u"(7", Text(u"(7")},
    {u"2023/02/29", Text(u"2023/02/29")},
    {u"1:60", Text(u"1:60")},
    {u"経過時間 [ms]", Text(u"経過時間 [ms]")},
    {u"  コメント  ", Text(u"  コメント  ")},
    {u"-", Text(u"-")},
    {u"---", Text(u"---")},
    {u"=", Text(u"=")},
    {u"Copyright (C) 2026", Text(u"Copyright (C) 2026")},
};

INSTANTIATE_TEST_SUITE_P(Numbers, OfficeTypedText, testing::ValuesIn(kNumbers));
INSTANTIATE_TEST_SUITE_P(DatesAndTimes, OfficeTypedText, testing::ValuesIn(kDatesAndTimes));
INSTANTIATE_TEST_SUITE_P(Others, OfficeTypedText, testing::ValuesIn(kOthers));

TEST(OfficeTypedTexts, ADayWithoutAYearIsOneOfThisYear) {
  const Typed typed = ParseTyped(u"1/2");
  EXPECT_EQ(typed.number_format, 14);
  EXPECT_GT(std::get<double>(typed.value), 45293.0 - 1);
}

TEST(OfficeTypedTexts, AFormulaIsOne) {
  for (const StringView text : {u"=1+1", u"=== test ===", u"-abc", u"+x", u"@y"}) {
    EXPECT_TRUE(ParseTyped(text).is_formula) << ToUtf8(text);
  }
}

}  // namespace
}  // namespace tolvane::office
