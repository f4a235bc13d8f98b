#include "simulator/office/program_members.h"

#include "simulator/office/argument.h"

namespace tolvane::office {
namespace {

Outcome Active(const Program& program, ObjectKind kind, const Arguments& arguments) {
  if (!HasCount(arguments, 0)) return {kBadParameterCount, {}};
  if (program.books.empty()) return {kRefused, {}};
  return {kDone, Object{kind, program.books.back(), {}, {}}};
}

}  // namespace

Outcome GetVersion(Program& program, const Object&, Arguments& arguments) {
  if (!HasCount(arguments, 0)) return {kBadParameterCount, {}};
  return {kDone, program.version};
}

Outcome GetApplication(Program& program, const Object&, Arguments& arguments) {
  if (!HasCount(arguments, 0)) return {kBadParameterCount, {}};
  return {kDone, Object{program.kind, nullptr, {}, {}}};
}

Outcome PutSwitch(Program&, const Object&, Arguments& arguments) {
  return {ToBool(arguments.positional.front()) ? kDone : kTypeMismatch, {}};
}

Outcome PutDisplayAlerts(Program& program, const Object&, Arguments& arguments) {
  const std::optional<bool> value = ToBool(arguments.positional.front());
  if (!value) return {kTypeMismatch, {}};
  program.display_alerts = *value;
  return {};
}

Outcome Quit(Program& program, const Object&, Arguments& arguments) {
  if (!HasCount(arguments, 0)) return {kBadParameterCount, {}};
  program.quit = true;
  return {};
}

Outcome GetWorkbooks(Program&, const Object&, Arguments& arguments) {
  if (!HasCount(arguments, 0)) return {kBadParameterCount, {}};
  return {kDone, Object{ObjectKind::kWorkbooks, nullptr, {}, {}}};
}

Outcome GetActiveSheet(Program& program, const Object&, Arguments& arguments) {
  return Active(program, ObjectKind::kSheet, arguments);
}

Outcome GetActiveWorkbook(Program& program, const Object&, Arguments& arguments) {
  return Active(program, ObjectKind::kWorkbook, arguments);
}

}  // namespace tolvane::office
