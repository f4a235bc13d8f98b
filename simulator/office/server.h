#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "platform/string.h"
#include "simulator/office/members.h"
#include "simulator/office/record.h"
#include "simulator/office/script.h"
#include "simulator/office/value.h"

namespace tolvane::office {

/// One server process as its clients see it: looks members up, carries them out, keeps the record
/// and plays the script's faults.
class Server {
 public:
  /// `name` is the name that the server is created by: that of a spreadsheet program, or
  /// "Access.Application".
  Server(StringView name, String version, Script script, Record& record);

  /// True when the call that comes now is to be turned away in this way; that goes to the record.
  /// The caller's transport asks this before each call, once for each way in which it can turn one
  /// away.
  [[nodiscard]] bool TurnsAway(BusyAs way);

  /// True for English, 1033. The stand-in is like a program that was installed in another language:
  /// only calls in English find English names. Other locales go to the record.
  [[nodiscard]] bool Understands(std::uint32_t locale);

  /// The program, or empty when the script refuses it. Goes to the record.
  [[nodiscard]] std::optional<Object> Create();

  /// The id of a member of this object, 0 when it has none of that name; that goes to the record.
  [[nodiscard]] std::int32_t FindMember(const Object& object, StringView name);

  [[nodiscard]] Outcome Invoke(const Object& object, Verb verb, std::int32_t member,
                               Arguments arguments);

  [[nodiscard]] bool QuitAsked() const { return program_.quit; }

 private:
  [[nodiscard]] bool IsBusy() const;

  String name_;
  Script script_;
  Record& record_;
  Program program_;
  bool created_ = false;
  std::int32_t operations_ = 0;
  std::int32_t turned_away_ = 0;
  std::chrono::steady_clock::time_point busy_since_;  // set with the first call turned away
};

}  // namespace tolvane::office
