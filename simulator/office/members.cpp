#include "simulator/office/members.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/office/xls_writer.h"
#include "simulator/office/xlsx_writer.h"

namespace tolvane::office {
namespace {

using enum ObjectKind;
using enum Verb;

/// One call on its way, with arguments of the kinds that its row of the table tells.
struct Call {
  Program& program;
  const Object& object;
  Arguments& arguments;

  [[nodiscard]] Sheet& SheetOf() const { return *object.sheet; }
  [[nodiscard]] std::int32_t Number(std::size_t index = 0) const {
    return std::get<std::int32_t>(arguments.positional[index]);
  }
  [[nodiscard]] const String& Text() const {
    return std::get<String>(arguments.positional.front());
  }
  [[nodiscard]] bool Flag() const { return std::get<bool>(arguments.positional.front()); }
  [[nodiscard]] const Object& Corner(std::size_t index) const {
    return std::get<Object>(arguments.positional[index]);
  }
};

Outcome Done(bool done = true) { return {done ? kDone : kRefused, {}}; }

Outcome Part(const Call& call, ObjectKind kind) {
  return {kDone, Object{kind, call.object.sheet, call.object.area, {}}};
}

Outcome AreaOf(const Call& call, ObjectKind kind, const std::optional<Area>& area) {
  if (!area) return Done(false);
  return {kDone, Object{kind, call.object.sheet, *area, {}}};
}

Outcome Active(const Call& call, ObjectKind kind) {
  if (call.program.books.empty()) return Done(false);
  return {kDone, Object{kind, call.program.books.back(), {}, {}}};
}

bool IsWithin(std::int32_t number, int highest) { return number >= 1 && number <= highest; }

Outcome OneCell(const Call& call) {
  const std::int32_t row = call.Number(0);
  const std::int32_t column = call.Number(1);
  if (!IsWithin(row, kLastRow) || !IsWithin(column, kLastColumn)) return Done(false);
  return AreaOf(call, kRange, Area{row, column, row, column});
}

Outcome OneColumn(const Call& call) {
  const std::int32_t column = call.Number();
  if (!IsWithin(column, kLastColumn)) return Done(false);
  return AreaOf(call, kColumns, Area{1, column, kLastRow, column});
}

Outcome RangeBetween(const Call& call) {
  const Object& first = call.Corner(0);
  const Object& last = call.Corner(1);
  if (first.kind != kRange || last.kind != kRange) return {kTypeMismatch, {}};
  const bool here = first.sheet == call.object.sheet && last.sheet == call.object.sheet;
  return AreaOf(call, kRange, here ? Spanning(first.area, last.area) : std::nullopt);
}

/// Switches a look on when the put value is the one number that stands for it.
Outcome SwitchOn(const Call& call, std::int32_t expected, bool CellStyle::*look) {
  return Done(call.Number() == expected && call.SheetOf().SetStyle(call.object.area, look, true));
}

Outcome FontSize(const Call& call) {
  constexpr int kLargest = 409;
  const int size = call.Number();
  return Done(IsWithin(size, kLargest) &&
              call.SheetOf().SetStyle(call.object.area, &CellStyle::font_size, size));
}

Outcome ColumnWidth(const Call& call) {
  constexpr int kWidest = 255;
  const std::int32_t width = call.Number();
  if (!IsWithin(width, kWidest)) return Done(false);
  call.SheetOf().SetColumnWidth(call.object.area, width);
  return Done();
}

Outcome MergeCells(const Call& call) {
  if (call.Flag()) call.SheetOf().Merge(call.object.area);
  return Done(call.Flag());
}

Outcome Texts(const Call& call) {
  Table& table = std::get<Table>(call.arguments.positional.front());
  return Done(call.SheetOf().SetTexts(call.object.area, std::move(table)));
}

Outcome AutoFilter(const Call& call) {
  if (call.Number() != 1) return Done(false);
  call.SheetOf().SetFilter(call.object.area);
  return Done();
}

Outcome Version(const Call& call) { return {kDone, call.program.version}; }

Outcome DisplayAlerts(const Call& call) {
  call.program.display_alerts = call.Flag();
  return Done();
}

Outcome Quit(const Call& call) {
  call.program.quit = true;
  return Done();
}

Outcome AddWorkbook(const Call& call) {
  call.program.books.push_back(std::make_shared<Sheet>());
  return Active(call, kWorkbook);
}

/// The workbook opened before it becomes the active one.
Outcome Close(const Call& call) {
  return Done(std::erase(call.program.books, call.object.sheet) != 0);
}

/// A reference to another workbook puts the name of the file in brackets behind its folder, and all
/// of it has a limit: what could not be told in one is not saved.
bool CanBeReferredTo(StringView path) {
  constexpr std::size_t kPath_MAX = 218;  // UTF-16 units, the name of the file among them
  return path.size() <= kPath_MAX && path.find_first_of(u"[]") == StringView::npos;
}

/// A file that exists is overwritten only while DisplayAlerts is off: a hidden program has nobody
/// to ask.
Outcome Save(const Call& call, const String& name, const std::optional<std::string>& bytes) {
  const std::filesystem::path path(name);
  std::error_code error;
  const bool is_taken = call.program.display_alerts && std::filesystem::exists(path, error);
  if (!CanBeReferredTo(name) || is_taken || !bytes) return Done(false);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes->data(), static_cast<std::streamsize>(bytes->size()));
  file.close();
  return Done(!file.fail());
}

Outcome SaveAs(const Call& call) { return Save(call, call.Text(), WriteXls(call.SheetOf())); }

Outcome SaveAsFormat(const Call& call) {
  const String& name = std::get<String>(*call.arguments.file_name);
  switch (std::get<std::int32_t>(*call.arguments.file_format)) {
    case 51:
      return Save(call, name, WriteXlsx(call.SheetOf()));
    case 56:
      return Save(call, name, WriteXls(call.SheetOf()));
    default:
      return Done(false);
  }
}

struct Member {
  ObjectKind owner;
  Verb verb;
  StringView name;
  std::string_view takes;  // KindsOf its arguments
  Outcome (*carry_out)(const Call& call);
};

// There is nothing to show or to update: three switches take True and False, and that is all.
constexpr Member kMembers[] = {
    {kSpreadsheetProgram, kGet, u"Version", "", Version},
    {kSpreadsheetProgram, kGet, u"Application", "",
     [](const Call& call) { return Part(call, call.program.kind); }},
    {kSpreadsheetProgram, kPut, u"Visible", "b", [](const Call&) { return Done(); }},
    {kSpreadsheetProgram, kPut, u"ScreenUpdating", "b", [](const Call&) { return Done(); }},
    {kSpreadsheetProgram, kPut, u"Interactive", "b", [](const Call&) { return Done(); }},
    {kSpreadsheetProgram, kPut, u"DisplayAlerts", "b", DisplayAlerts},
    {kSpreadsheetProgram, kCall, u"Quit", "", Quit},
    {kSpreadsheetProgram, kGet, u"Workbooks", "",
     [](const Call& call) { return Part(call, kWorkbooks); }},
    {kSpreadsheetProgram, kGet, u"ActiveSheet", "",
     [](const Call& call) { return Active(call, kSheet); }},
    {kSpreadsheetProgram, kGet, u"ActiveWorkbook", "",
     [](const Call& call) { return Active(call, kWorkbook); }},
    {kDatabaseProgram, kGet, u"Version", "", Version},
    {kDatabaseProgram, kCall, u"Quit", "", Quit},
    {kWorkbooks, kCall, u"Add", "", AddWorkbook},
    {kWorkbook, kCall, u"SaveAs", "s", SaveAs},
    {kWorkbook, kCall, u"SaveAs", "NsFi", SaveAsFormat},
    {kWorkbook, kCall, u"Close", "", Close},
    {kSheet, kGet, u"cells", "",
     [](const Call& call) { return AreaOf(call, kRange, kWholeSheet); }},
    {kSheet, kGet, u"cells", "ii", OneCell},
    {kSheet, kGet, u"Range", "s",
     [](const Call& call) { return AreaOf(call, kRange, ParseArea(call.Text())); }},
    {kSheet, kGet, u"Range", "oo", RangeBetween},
    {kSheet, kGet, u"Columns", "i", OneColumn},
    {kSheet, kGet, u"Columns", "s",
     [](const Call& call) { return AreaOf(call, kColumns, ParseColumns(call.Text())); }},
    {kColumns, kPut, u"ColumnWidth", "i", ColumnWidth},
    {kRange, kGet, u"Font", "", [](const Call& call) { return Part(call, kFont); }},
    {kRange, kGet, u"Interior", "", [](const Call& call) { return Part(call, kInterior); }},
    {kRange, kGet, u"Borders", "", [](const Call& call) { return Part(call, kBorders); }},
    {kRange, kPut, u"Value", "t", Texts},
    {kRange, kPut, u"MergeCells", "b", MergeCells},
    {kRange, kPut, u"HorizontalAlignment", "i",
     [](const Call& call) { return SwitchOn(call, -4152, &CellStyle::right_aligned); }},
    {kRange, kCall, u"AutoFilter", "i", AutoFilter},
    {kFont, kPut, u"size", "i", FontSize},
    {kInterior, kPut, u"ColorIndex", "i",
     [](const Call& call) { return SwitchOn(call, 36, &CellStyle::filled); }},
    {kBorders, kPut, u"LineStyle", "i",
     [](const Call& call) { return SwitchOn(call, 1, &CellStyle::bordered); }},
};

/// Ids of members are their first row in the table, from 1; the arguments follow.
constexpr std::int32_t kMemberCount = static_cast<std::int32_t>(std::size(kMembers));
constexpr StringView kArgumentNames[] = {u"FileName", u"FileFormat"};

char16_t Lower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

bool SameName(StringView one, StringView other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](char16_t left, char16_t right) { return Lower(left) == Lower(right); });
}

/// Truth value, number, text, table or object, in the order of Value.
char KindLetter(const Value& value) { return "-bisto"[value.index()]; }

/// A letter for each argument; behind "N" and "F" those of the file's name and format.
std::string KindsOf(const Arguments& arguments) {
  std::string kinds;
  for (const Value& value : arguments.positional) kinds += KindLetter(value);
  if (arguments.file_name) kinds.append("N") += KindLetter(*arguments.file_name);
  if (arguments.file_format) kinds.append("F") += KindLetter(*arguments.file_format);
  return kinds;
}

bool Fits(const Member& row, ObjectKind owner, Verb verb, std::int32_t id) {
  return id >= 1 && id <= kMemberCount && row.owner == owner && row.verb == verb &&
         row.name == kMembers[id - 1].name;
}

}  // namespace

std::int32_t NameId(StringView name) {
  std::int32_t id = 0;
  for (const Member& row : kMembers) {
    ++id;
    if (SameName(row.name, name)) return id;
  }
  for (const StringView argument : kArgumentNames) {
    ++id;
    if (SameName(argument, name)) return id;
  }
  return 0;
}

std::optional<StringView> MemberName(ObjectKind owner, Verb verb, std::int32_t id) {
  for (const Member& row : kMembers) {
    if (Fits(row, owner, verb, id)) return row.name;
  }
  return {};
}

Outcome CarryOut(Program& program, const Object& object, Verb verb, std::int32_t id,
                 Arguments& arguments) {
  const std::string kinds = KindsOf(arguments);
  std::uint32_t result = kMemberNotFound;
  for (const Member& row : kMembers) {
    if (!Fits(row, object.kind, verb, id)) continue;
    if (row.takes == kinds) return row.carry_out({program, object, arguments});
    if (result != kTypeMismatch) {
      result = row.takes.size() == kinds.size() ? kTypeMismatch : kBadParameterCount;
    }
  }
  return {result, {}};
}

}  // namespace tolvane::office
