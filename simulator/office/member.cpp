#include "simulator/office/member.h"

#include <algorithm>

#include "simulator/office/book_members.h"
#include "simulator/office/program_members.h"
#include "simulator/office/range_members.h"

namespace tolvane::office {
namespace {

char16_t Lower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

using enum ObjectKind;
using enum Verb;

constexpr Member kMembers[] = {
    {kSpreadsheetProgram, kGet, u"Version", GetVersion},
    {kSpreadsheetProgram, kGet, u"Application", GetApplication},
    {kSpreadsheetProgram, kPut, u"Visible", PutSwitch},
    {kSpreadsheetProgram, kPut, u"ScreenUpdating", PutSwitch},
    {kSpreadsheetProgram, kPut, u"Interactive", PutSwitch},
    {kSpreadsheetProgram, kPut, u"DisplayAlerts", PutDisplayAlerts},
    {kSpreadsheetProgram, kCall, u"Quit", Quit},
    {kSpreadsheetProgram, kGet, u"Workbooks", GetWorkbooks},
    {kSpreadsheetProgram, kGet, u"ActiveSheet", GetActiveSheet},
    {kSpreadsheetProgram, kGet, u"ActiveWorkbook", GetActiveWorkbook},
    {kDatabaseProgram, kGet, u"Version", GetVersion},
    {kDatabaseProgram, kCall, u"Quit", Quit},
    {kWorkbooks, kCall, u"Add", AddWorkbook},
    {kWorkbook, kCall, u"SaveAs", SaveAs},
    {kWorkbook, kCall, u"Close", Close},
    {kSheet, kGet, u"cells", GetCells},
    {kSheet, kGet, u"Range", GetRange},
    {kSheet, kGet, u"Columns", GetColumns},
    {kColumns, kPut, u"ColumnWidth", PutColumnWidth},
    {kRange, kGet, u"Font", GetFont},
    {kRange, kGet, u"Interior", GetInterior},
    {kRange, kGet, u"Borders", GetBorders},
    {kRange, kPut, u"Value", PutValue},
    {kRange, kPut, u"MergeCells", PutMergeCells},
    {kRange, kPut, u"HorizontalAlignment", PutHorizontalAlignment},
    {kRange, kCall, u"AutoFilter", AutoFilter},
    {kFont, kPut, u"size", PutFontSize},
    {kInterior, kPut, u"ColorIndex", PutColorIndex},
    {kBorders, kPut, u"LineStyle", PutLineStyle},
};

}  // namespace

std::span<const Member> Members() { return kMembers; }

bool SameName(StringView one, StringView other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](char16_t left, char16_t right) { return Lower(left) == Lower(right); });
}

}  // namespace tolvane::office
