#include "simulator/office/server.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

#include "simulator/office/argument.h"
#include "simulator/office/member.h"
#include "simulator/office/utf8.h"

namespace tolvane::office {
namespace {

struct Served {
  StringView name;
  ObjectKind program;
};

constexpr Served kServed[] = {
    {u"Excel.Application", ObjectKind::kSpreadsheetProgram},
    {u"Ket.Application", ObjectKind::kSpreadsheetProgram},
    {u"Access.Application", ObjectKind::kDatabaseProgram},
};

const Served* FindServed(StringView name) {
  const auto found = std::find_if(std::begin(kServed), std::end(kServed),
                                  [&](const Served& row) { return SameName(row.name, name); });
  return found == std::end(kServed) ? nullptr : &*found;
}

/// Ids of members are their first row in the table of members, from 1; the arguments follow.
constexpr StringView kArgumentNames[] = {u"FileName", u"FileFormat"};

const Member* FindRow(const Object& object, Verb verb, std::int32_t id) {
  const std::span<const Member> members = Members();
  if (id < 1 || static_cast<std::size_t>(id) > members.size()) return nullptr;
  const StringView name = members[static_cast<std::size_t>(id - 1)].name;
  const auto found = std::find_if(members.begin(), members.end(), [&](const Member& row) {
    return row.owner == object.kind && row.verb == verb && row.name == name;
  });
  return found == members.end() ? nullptr : &*found;
}

}  // namespace

std::int32_t NameId(StringView name) {
  const std::span<const Member> members = Members();
  const auto member = std::find_if(members.begin(), members.end(),
                                   [&](const Member& row) { return SameName(row.name, name); });
  if (member != members.end()) return static_cast<std::int32_t>(member - members.begin()) + 1;
  const auto* const argument =
      std::find_if(std::begin(kArgumentNames), std::end(kArgumentNames),
                   [&](StringView known) { return SameName(known, name); });
  if (argument == std::end(kArgumentNames)) return 0;
  return static_cast<std::int32_t>(members.size()) +
         static_cast<std::int32_t>(argument - std::begin(kArgumentNames)) + 1;
}

Server::Server(StringView name, String version, Script script, Record& record)
    : name_(name), script_(std::move(script)), record_(record) {
  if (const Served* const served = FindServed(name)) program_.kind = served->program;
  program_.version = std::move(version);
  for (const std::string& problem : script_.problems) record_.Line("script " + problem);
}

bool Server::IsServed(StringView name) { return FindServed(name) != nullptr; }

bool Server::TurnsAway(BusyAs way) {
  if (way != script_.busy_as || !IsBusy()) return false;
  if (turned_away_++ == 0) busy_since_ = std::chrono::steady_clock::now();
  record_.Line("busy");
  return true;
}

bool Server::IsBusy() const {
  const std::int32_t next = created_ ? operations_ + 1 : 0;
  if (next < script_.busy_at) return false;
  if (turned_away_ < script_.busy_calls) return true;
  const std::chrono::milliseconds length(script_.busy_ms);
  return length.count() > 0 &&
         (turned_away_ == 0 || std::chrono::steady_clock::now() - busy_since_ < length);
}

bool Server::Understands(std::uint32_t locale) {
  constexpr std::uint32_t kEnglish = 1033;
  if (locale == kEnglish) return true;
  record_.Line("locale " + std::to_string(locale));
  return false;
}

std::optional<Object> Server::Create() {
  created_ = true;
  record_.Line("create " + ToUtf8(name_) + ResultText(script_.fail_creation ? kRefused : kDone));
  if (script_.fail_creation) return std::nullopt;
  return Object{program_.kind, nullptr, {}, ""};
}

std::int32_t Server::FindMember(const Object& object, StringView name) {
  const std::int32_t id = NameId(name);
  if (HasMember(object, Verb::kGet, id) || HasMember(object, Verb::kPut, id) ||
      HasMember(object, Verb::kCall, id)) {
    return id;
  }
  record_.Line("name " + MemberText(object, name, {}) + ResultText(kUnknownName));
  return 0;
}

bool Server::HasMember(const Object& object, Verb verb, std::int32_t member) {
  return FindRow(object, verb, member) != nullptr;
}

Outcome Server::Invoke(const Object& object, Verb verb, std::int32_t member, Arguments arguments) {
  if (script_.delay_ms > 0)
    std::this_thread::sleep_for(std::chrono::milliseconds(script_.delay_ms));
  const Member* const row = FindRow(object, verb, member);
  if (row == nullptr) return {kMemberNotFound, {}};

  const std::string text = OperationText(object, verb, row->name, arguments);
  ++operations_;
  Outcome outcome;
  if (operations_ == script_.fail_at) {
    outcome.result = script_.fail_with;
  } else if (verb == Verb::kPut && !HasCount(arguments, 1)) {
    outcome.result = kBadParameterCount;
  } else {
    outcome = row->carry_out(program_, object, arguments);
  }
  // The object that a get gives is called by what gave it, without the verb ahead.
  if (auto* const made = std::get_if<Object>(&outcome.value)) {
    made->text = text.substr(text.find(' ') + 1);
  }
  record_.Line(text + ResultText(outcome.result));
  return outcome;
}

}  // namespace tolvane::office
