#include "simulator/office/record.h"

#include <gtest/gtest.h>

namespace tolvane::office {
namespace {

TEST(OfficeRecord, ValuesHaveTheirTexts) {
  EXPECT_EQ(ValueText(std::monostate{}), "Empty");
  EXPECT_EQ(ValueText(true), "True");
  EXPECT_EQ(ValueText(std::int32_t{-4152}), "-4152");
  EXPECT_EQ(ValueText(String(u"a \"b\"\r\n除")), "\"a \"\"b\"\"\\r\\n\xE9\x99\xA4\"");
  EXPECT_EQ(ValueText(Table{1, 2, {u"a", u""}}), "table(1x2) \"a\" \"\"");
  EXPECT_EQ(ValueText(Object{ObjectKind::kRange, nullptr, {}, "ActiveSheet.cells(1, 2)"}),
            "ActiveSheet.cells(1, 2)");
}

TEST(OfficeRecord, ALargeTableIsItsSizeAlone) {
  EXPECT_TRUE(ValueText(Table{64, 1, std::vector<String>(64, u"7")}).ends_with(" \"7\""));
  EXPECT_EQ(ValueText(Table{65, 1, std::vector<String>(65, u"7")}), "table(65x1)");
}

TEST(OfficeRecord, OperationsHaveTheirLines) {
  const Object program;
  const Object book{ObjectKind::kWorkbook, nullptr, {}, "ActiveWorkbook"};
  EXPECT_EQ(OperationText(program, Verb::kPut, u"Visible", {{false}, {}, {}}),
            "put Visible = False");
  EXPECT_EQ(OperationText(program, Verb::kGet, u"cells", {{6, 12}, {}, {}}), "get cells(6, 12)");
  EXPECT_EQ(OperationText(book, Verb::kCall, u"SaveAs", {{}, String(u"a"), 51}),
            "call ActiveWorkbook.SaveAs(FileName:=\"a\", FileFormat:=51)");
  EXPECT_EQ(OperationText(book, Verb::kCall, u"Close", {}), "call ActiveWorkbook.Close");
}

TEST(OfficeRecord, AFailureShowsItsCode) {
  EXPECT_EQ(ResultText(kDone), "");
  EXPECT_EQ(ResultText(kRefused), " ! 800A03EC");
}

}  // namespace
}  // namespace tolvane::office
