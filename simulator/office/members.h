#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/string.h"
#include "simulator/office/value.h"

namespace tolvane::office {

/// The state of one server process: its open workbooks and switches.
struct Program {
  ObjectKind kind = ObjectKind::kSpreadsheetProgram;  // one of the two programs
  String version;
  std::vector<std::shared_ptr<Sheet>> books;  // the last one is the active one
  bool display_alerts = true;
  bool quit = false;
};

/// The names that members and arguments have. An id is what a client gets for a name: 1 and up.
/// Upper and lower case do not matter.
std::int32_t NameId(StringView name);  // 0 when nothing here has the name

/// The name of a member of this owner that the verb is for, in its own letters; empty without one.
std::optional<StringView> MemberName(ObjectKind owner, Verb verb, std::int32_t id);

/// Carries out what MemberName finds. Arguments of another number or kind than the log puts are
/// refused, and so are values that would not show in a file: other colours, lines, alignments,
/// tables of another size than their range, a lone text, which a real program would take as typed.
/// An object that comes out still lacks its text.
Outcome CarryOut(Program& program, const Object& object, Verb verb, std::int32_t id,
                 Arguments& arguments);

}  // namespace tolvane::office
