#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/string.h"
#include "simulator/office/sheet.h"

namespace tolvane::office {

enum class ObjectKind {
  kSpreadsheetProgram,
  kDatabaseProgram,
  kWorkbooks,
  kWorkbook,
  kSheet,
  kRange,
  kColumns,
  kFont,
  kInterior,
  kBorders,
};

/// What a client holds: a part of a workbook, or the program.
struct Object {
  ObjectKind kind = ObjectKind::kSpreadsheetProgram;
  std::shared_ptr<Sheet> sheet;  // of a workbook and its parts, null otherwise
  Area area;                     // of a range and its parts
  std::string text;              // how it was reached, for the record; "" for the program
};

using Value = std::variant<std::monostate, bool, std::int32_t, String, Table, Object>;

/// Results of an operation: 0, or an HRESULT as the client sees it.
enum Result : std::uint32_t {
  kDone = 0,
  kMemberNotFound = 0x80020003,
  kTypeMismatch = 0x80020005,
  kUnknownName = 0x80020006,
  kBadParameterCount = 0x8002000E,
  kOldFormat = 0x80028018,  // what a program in another language makes of English calls
  kRetryLater = 0x8001010A,
  kSuspended = 0x800AC472,  // the program's own "not now": it calculates, or a cell is in edit
  kRefused = 0x800A03EC,    // the program's own "application-defined error"
};

enum class Verb { kGet, kPut, kCall };

/// Arguments in the order of the call; those by name are apart. A put has its value in
/// `positional`.
struct Arguments {
  std::vector<Value> positional;
  std::optional<Value> file_name;
  std::optional<Value> file_format;
};

struct Outcome {
  std::uint32_t result = kDone;
  Value value;
};

}  // namespace tolvane::office
