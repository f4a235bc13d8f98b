#include "simulator/office/area.h"

#include <gtest/gtest.h>

namespace tolvane::office {
namespace {

TEST(OfficeArea, ReadsOneCellAndTwoCorners) {
  EXPECT_EQ(ParseArea(u"A1"), (Area{1, 1, 1, 1}));
  EXPECT_EQ(ParseArea(u"H1:K2"), (Area{1, 8, 2, 11}));
  EXPECT_EQ(ParseArea(u"IV65536"), (Area{65536, 256, 65536, 256}));
}

TEST(OfficeArea, RefusesWhatIsNoCell) {
  for (const char16_t* text : {u"", u"A", u"1", u"A0", u"IW1", u"A65537", u"A1:", u"A1:B", u"A1 ",
                               u"A1:B2:C3", u":A1", u"A99999999999", u"h1", u"K2:H1"}) {
    EXPECT_EQ(ParseArea(text), std::nullopt) << std::string(text, text + StringView(text).size());
  }
}

TEST(OfficeArea, ReadsColumnsOverAllRows) {
  EXPECT_EQ(ParseColumns(u"E:L"), (Area{1, 5, 65536, 12}));
  EXPECT_EQ(ParseColumns(u"AA"), (Area{1, 27, 65536, 27}));
  EXPECT_EQ(ParseColumns(u"E1:L1"), std::nullopt);
  EXPECT_EQ(ParseColumns(u""), std::nullopt);
}

TEST(OfficeArea, WritesNames) {
  EXPECT_EQ(ColumnName(26), "Z");
  EXPECT_EQ(ColumnName(27), "AA");
  EXPECT_EQ(ColumnName(256), "IV");
  EXPECT_EQ(AreaText({7, 1, 20007, 12}), "A7:L20007");
  EXPECT_EQ(AreaText({7, 1, 7, 1}), "A7");
}

}  // namespace
}  // namespace tolvane::office
