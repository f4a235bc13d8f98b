#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <variant>
#include <vector>

#include "platform/string.h"

namespace tolvane::platform {

class AutomationObject;

/// A rectangle of texts, row by row: crosses to the server in one piece, and its texts stay texts
/// there. A spreadsheet program takes a lone text as if it had been typed: "7E8" becomes a number,
/// "2026/1/2 3:04:05" a date without its seconds, and one that begins with "=" is refused when it
/// is no formula. What must stay a text therefore crosses as a table, if only of one cell.
struct AutomationTable {
  std::span<const String> cells;  // rows x columns, not owned, alive during the call
  std::size_t columns;
};

/// What goes into and comes out of an automation call. An object that comes out is owned by the
/// value; an object that goes in is borrowed for the call.
using AutomationArgument =
    std::variant<std::monostate, bool, std::int32_t, String, AutomationTable, AutomationObject*>;
using AutomationResult = std::variant<std::monostate, bool, std::int32_t, double, String,
                                      std::unique_ptr<AutomationObject>>;

struct NamedArgument {
  StringView name;
  AutomationArgument value;
};

/// An object of an automation server, late bound: members are found by name at each use.
/// Empty results mean that the server refused or failed. Outgoing calls may pump messages, but
/// the event gate stays closed: no tick and no click reaches the logic meanwhile.
///
/// A server that is starting or calculating, or has a cell in edit mode, rejects calls as busy.
/// Such a call is repeated with short pauses, during which the program does nothing else, for
/// kBusyLimit_ms in total since the server's creation or the last BeginSequence; after that the
/// call has failed.
class AutomationObject {
 public:
  static constexpr std::int32_t kBusyLimit_ms = 10'000;

  virtual ~AutomationObject() = default;

  /// Begins a sequence of calls with a new limit on waiting, which all objects of this server
  /// share.
  virtual void BeginSequence() = 0;

  /// Property get, with index arguments in order if there are any.
  [[nodiscard]] virtual std::optional<AutomationResult> Get(
      StringView name, std::span<const AutomationArgument> arguments) = 0;
  [[nodiscard]] virtual bool Put(StringView name, const AutomationArgument& value) = 0;
  /// Method call; positional arguments in order, then named ones.
  [[nodiscard]] virtual bool Call(StringView name, std::span<const AutomationArgument> arguments,
                                  std::span<const NamedArgument> named) = 0;
};

class AutomationServers {
 public:
  virtual ~AutomationServers() = default;
  /// Starts the server registered under `name`, such as "Excel.Application"; null when there is
  /// none or it cannot be started. A busy one is waited for like one that is called.
  [[nodiscard]] virtual std::unique_ptr<AutomationObject> CreateObject(StringView name) = 0;
};

}  // namespace tolvane::platform
