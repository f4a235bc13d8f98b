#include "simulator/office/xlsx_writer.h"

#include <gtest/gtest.h>

#include "simulator/office/xlsx_styles.h"

namespace tolvane::office {
namespace {

TEST(OfficeXlsxWriter, WritesTextsStylesWidthsFilterAndMergedRanges) {
  Sheet sheet;
  ASSERT_TRUE(sheet.SetStyle(kWholeSheet, &CellStyle::font_size, 10));
  ASSERT_TRUE(sheet.SetTexts({1, 1, 2, 2}, Table{2, 2, {u"x", u"y", u"", u"x"}}));
  ASSERT_TRUE(sheet.SetStyle({2, 1, 2, 1}, &CellStyle::bordered, true));
  sheet.SetColumnWidth({1, 2, kLastRow, 2}, 4);
  sheet.Merge({1, 1, 1, 2});
  sheet.SetFilter({2, 1, 2, 1});
  const std::string file = WriteXlsx(sheet);
  EXPECT_NE(file.find(R"(<dimension ref="A1:B2"/>)"
                      R"(<cols><col min="2" max="2" width="4" style="0" customWidth="1"/></cols>)"
                      R"(<sheetData><row r="1"><c r="A1" t="s"><v>0</v></c>)"
                      R"(<c r="B1" t="s"><v>1</v></c></row>)"
                      R"(<row r="2"><c r="A2" s="1"/><c r="B2" t="s"><v>0</v></c></row>)"
                      R"(</sheetData><autoFilter ref="A2:B2"/>)"
                      R"(<mergeCells><mergeCell ref="A1:B1"/></mergeCells></worksheet>)"),
            std::string::npos);
  EXPECT_NE(file.find(R"(<si><t xml:space="preserve">x</t></si>)"
                      R"(<si><t xml:space="preserve">y</t></si></sst>)"),
            std::string::npos);
}

TEST(OfficeXlsxWriter, ARowWithoutContentIsLeftOut) {
  Sheet sheet;
  ASSERT_TRUE(sheet.SetTexts({3, 2, 3, 2}, Table{1, 1, {u"x"}}));
  EXPECT_NE(WriteXlsx(sheet).find(
                R"(<sheetData><row r="3"><c r="B3" t="s"><v>0</v></c></row></sheetData>)"),
            std::string::npos);
}

TEST(OfficeXlsxWriter, EscapesMarkupAndControlCharacters) {
  Sheet sheet;
  ASSERT_TRUE(sheet.SetTexts({1, 1, 1, 1}, Table{1, 1, {u"a<b>&\"c\t\x07\x1F\u9664"}}));
  EXPECT_NE(WriteXlsx(sheet).find(">a&lt;b&gt;&amp;\"c\t_x0007__x001F_\xE9\x99\xA4</t>"),
            std::string::npos);
}

TEST(OfficeXlsxStyles, EachLookHasItsFormat) {
  const std::string styles =
      StylesXml({CellStyle{10, false, false, false}, CellStyle{9, true, true, false},
                 CellStyle{8, false, false, true}});
  for (const char* part :
       {R"(<sz val="10"/>)", R"(<sz val="9"/>)", R"(<sz val="8"/>)",
        R"(fontId="0" fillId="0" borderId="0" xfId="0" applyFont)",
        R"(fontId="1" fillId="2" borderId="1" xfId="0")",
        R"(fontId="2" fillId="0" borderId="0" xfId="0" applyFont="1" applyFill="1" )"
        R"(applyBorder="1" applyAlignment="1"><alignment horizontal="right"/>)"}) {
    EXPECT_NE(styles.find(part), std::string::npos) << part;
  }
}

TEST(OfficeSheet, RefusesATableOfAnotherSizeAndTooManyCells) {
  Sheet sheet;
  EXPECT_FALSE(sheet.SetTexts({1, 1, 2, 2}, Table{1, 4, {u"", u"", u"", u""}}));
  EXPECT_FALSE(sheet.SetStyle({1, 1, 65536, 16}, &CellStyle::filled, true));
  EXPECT_TRUE(sheet.Rows().empty());
}

TEST(OfficeSheet, ALaterSizeOfTheWholeSheetReachesCellsThatStand) {
  Sheet sheet;
  ASSERT_TRUE(sheet.SetStyle({1, 1, 1, 1}, &CellStyle::filled, true));
  ASSERT_TRUE(sheet.SetStyle(kWholeSheet, &CellStyle::font_size, 12));
  const CellStyle& style = sheet.Styles()[sheet.Rows()[0][0].style];
  EXPECT_EQ(style, (CellStyle{12, true, false, false}));
}

}  // namespace
}  // namespace tolvane::office
