#include "simulator/office/range_members.h"

#include <utility>

#include "simulator/office/argument.h"

namespace tolvane::office {
namespace {

constexpr std::int32_t kRight = -4152;
constexpr std::int32_t kLightYellow = 36;
constexpr std::int32_t kContinuousLine = 1;

Outcome Part(const Object& object, ObjectKind kind, const Arguments& arguments) {
  if (!HasCount(arguments, 0)) return {kBadParameterCount, {}};
  return {kDone, Object{kind, object.sheet, object.area, {}}};
}

Outcome RangeOf(const Object& object, const std::optional<Area>& area) {
  if (!area) return {kRefused, {}};
  return {kDone, Object{ObjectKind::kRange, object.sheet, *area, {}}};
}

bool IsWithin(std::int32_t number, int highest) { return number >= 1 && number <= highest; }

/// Switches a look on when the put value is the one number that stands for it.
Outcome SwitchOn(const Object& object, const Arguments& arguments, std::int32_t expected,
                 bool CellStyle::*look) {
  const std::optional<std::int32_t> value = ToInteger(arguments.positional.front());
  if (!value) return {kTypeMismatch, {}};
  if (*value != expected) return {kRefused, {}};
  return {object.sheet->SetStyle(object.area, look, true) ? kDone : kRefused, {}};
}

}  // namespace

Outcome GetCells(Program&, const Object& object, Arguments& arguments) {
  if (HasCount(arguments, 0)) return RangeOf(object, kWholeSheet);
  if (!HasCount(arguments, 2)) return {kBadParameterCount, {}};
  const std::optional<std::int32_t> row = ToInteger(arguments.positional[0]);
  const std::optional<std::int32_t> column = ToInteger(arguments.positional[1]);
  if (!row || !column) return {kTypeMismatch, {}};
  if (!IsWithin(*row, kLastRow) || !IsWithin(*column, kLastColumn)) return {kRefused, {}};
  return RangeOf(object, Area{*row, *column, *row, *column});
}

Outcome GetRange(Program&, const Object& object, Arguments& arguments) {
  if (HasCount(arguments, 1)) {
    const String* const text = std::get_if<String>(&arguments.positional[0]);
    return text == nullptr ? Outcome{kTypeMismatch, {}} : RangeOf(object, ParseArea(*text));
  }
  if (!HasCount(arguments, 2)) return {kBadParameterCount, {}};
  const Object* const first = std::get_if<Object>(&arguments.positional[0]);
  const Object* const second = std::get_if<Object>(&arguments.positional[1]);
  if (first == nullptr || second == nullptr || first->kind != ObjectKind::kRange ||
      second->kind != ObjectKind::kRange) {
    return {kTypeMismatch, {}};
  }
  if (first->sheet != object.sheet || second->sheet != object.sheet) return {kRefused, {}};
  return RangeOf(object, Around(first->area, second->area));
}

Outcome GetColumns(Program&, const Object& object, Arguments& arguments) {
  if (!HasCount(arguments, 1)) return {kBadParameterCount, {}};
  std::optional<Area> area;
  if (const String* const text = std::get_if<String>(&arguments.positional[0])) {
    area = ParseColumns(*text);
  } else {
    const std::optional<std::int32_t> column = ToInteger(arguments.positional[0]);
    if (!column) return {kTypeMismatch, {}};
    if (IsWithin(*column, kLastColumn)) area = Area{1, *column, kLastRow, *column};
  }
  if (!area) return {kRefused, {}};
  return {kDone, Object{ObjectKind::kColumns, object.sheet, *area, {}}};
}

Outcome PutColumnWidth(Program&, const Object& object, Arguments& arguments) {
  constexpr double kWidest = 255;
  const std::optional<double> width = ToDouble(arguments.positional.front());
  if (!width) return {kTypeMismatch, {}};
  if (!(*width >= 0 && *width <= kWidest)) return {kRefused, {}};
  object.sheet->SetColumnWidth(object.area, *width);
  return {};
}

Outcome GetFont(Program&, const Object& object, Arguments& arguments) {
  return Part(object, ObjectKind::kFont, arguments);
}

Outcome GetInterior(Program&, const Object& object, Arguments& arguments) {
  return Part(object, ObjectKind::kInterior, arguments);
}

Outcome GetBorders(Program&, const Object& object, Arguments& arguments) {
  return Part(object, ObjectKind::kBorders, arguments);
}

Outcome PutValue(Program&, const Object& object, Arguments& arguments) {
  Value& value = arguments.positional.front();
  if (const String* const text = std::get_if<String>(&value)) {
    return {object.sheet->SetValue(object.area, ParseTyped(*text)) ? kDone : kRefused, {}};
  }
  Table* const table = std::get_if<Table>(&value);
  if (table == nullptr) return {kTypeMismatch, {}};
  return {object.sheet->SetTexts(object.area, std::move(*table)) ? kDone : kRefused, {}};
}

Outcome PutMergeCells(Program&, const Object& object, Arguments& arguments) {
  const std::optional<bool> value = ToBool(arguments.positional.front());
  if (!value) return {kTypeMismatch, {}};
  if (!*value) return {kRefused, {}};
  object.sheet->Merge(object.area);
  return {};
}

Outcome PutHorizontalAlignment(Program&, const Object& object, Arguments& arguments) {
  return SwitchOn(object, arguments, kRight, &CellStyle::right_aligned);
}

Outcome AutoFilter(Program&, const Object& object, Arguments& arguments) {
  if (!HasCount(arguments, 1)) return {kBadParameterCount, {}};
  const std::optional<std::int32_t> field = ToInteger(arguments.positional[0]);
  if (!field) return {kTypeMismatch, {}};
  if (*field != 1) return {kRefused, {}};
  object.sheet->SetFilter(object.area.first_row, object.area.first_column);
  return {};
}

Outcome PutFontSize(Program&, const Object& object, Arguments& arguments) {
  constexpr int kLargest = 409;
  const std::optional<std::int32_t> size = ToInteger(arguments.positional.front());
  if (!size) return {kTypeMismatch, {}};
  if (!IsWithin(*size, kLargest)) return {kRefused, {}};
  const bool done = object.sheet->SetStyle(object.area, &CellStyle::font_size, int{*size});
  return {done ? kDone : kRefused, {}};
}

Outcome PutColorIndex(Program&, const Object& object, Arguments& arguments) {
  return SwitchOn(object, arguments, kLightYellow, &CellStyle::filled);
}

Outcome PutLineStyle(Program&, const Object& object, Arguments& arguments) {
  return SwitchOn(object, arguments, kContinuousLine, &CellStyle::bordered);
}

}  // namespace tolvane::office
