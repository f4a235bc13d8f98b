#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/string.h"
#include "simulator/office/record.h"
#include "simulator/office/script.h"
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
std::int32_t NameId(StringView name);  // 0 when nothing here bears the name

/// One server process as its clients see it: looks members up, carries them out, keeps the record
/// and plays the script's faults.
class Server {
 public:
  /// `name` is the name that the server is created by, such as "Excel.Application"; see IsServed.
  Server(StringView name, String version, Script script, Record& record);

  static bool IsServed(StringView name);

  /// True when the call that comes now is to be turned away in this way; that goes to the record.
  /// Whoever carries calls asks ahead of each, for every way in which he can turn one away.
  [[nodiscard]] bool TurnsAway(BusyAs way);

  /// True for English, 1033. The stand-in is like a program that was installed in another language:
  /// only calls in English find English names. Other locales go to the record.
  [[nodiscard]] bool Understands(std::uint32_t locale);

  /// The program, or empty when the script refuses it. Goes to the record.
  [[nodiscard]] std::optional<Object> Create();

  /// The id of a member of this object, 0 when it has none of that name; that goes to the record.
  [[nodiscard]] std::int32_t FindMember(const Object& object, StringView name);

  /// True when the member is carried out by this verb.
  [[nodiscard]] static bool HasMember(const Object& object, Verb verb, std::int32_t member);

  [[nodiscard]] Outcome Invoke(const Object& object, Verb verb, std::int32_t member,
                               Arguments arguments);

  [[nodiscard]] bool QuitAsked() const { return program_.quit; }

 private:
  String name_;
  Script script_;
  Record& record_;
  Program program_;
  [[nodiscard]] bool IsBusy() const;

  bool created_ = false;
  std::int32_t operations_ = 0;
  std::int32_t turned_away_ = 0;
  std::chrono::steady_clock::time_point busy_since_;  // set with the first call turned away
};

}  // namespace tolvane::office
