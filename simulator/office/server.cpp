#include "simulator/office/server.h"

#include <thread>
#include <utility>

#include "platform/utf8.h"

namespace tolvane::office {

Server::Server(StringView name, String version, Script script, Record& record)
    : name_(name), script_(std::move(script)), record_(record) {
  if (name == u"Access.Application") program_.kind = ObjectKind::kDatabaseProgram;
  program_.version = std::move(version);
  for (const std::string& problem : script_.problems) record_.Line("script " + problem);
}

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
  const bool refused = script_.fail_creation == 1;
  record_.Line("create " + ToUtf8(name_) + ResultText(refused ? kRefused : kDone));
  if (refused) return std::nullopt;
  return Object{program_.kind, nullptr, {}, ""};
}

std::int32_t Server::FindMember(const Object& object, StringView name) {
  const std::int32_t id = NameId(name);
  for (const Verb verb : {Verb::kGet, Verb::kPut, Verb::kCall}) {
    if (MemberName(object.kind, verb, id)) return id;
  }
  record_.Line("name " + MemberText(object, name, {}) + ResultText(kUnknownName));
  return 0;
}

Outcome Server::Invoke(const Object& object, Verb verb, std::int32_t member, Arguments arguments) {
  if (script_.delay_ms > 0)
    std::this_thread::sleep_for(std::chrono::milliseconds(script_.delay_ms));
  const std::optional<StringView> name = MemberName(object.kind, verb, member);
  if (!name) return {kMemberNotFound, {}};

  const std::string text = OperationText(object, verb, *name, arguments);
  Outcome outcome{kRefused, {}};
  if (++operations_ != script_.fail_at) {
    outcome = CarryOut(program_, object, verb, member, arguments);
  }
  // The object that a get gives is called by what gave it, without the verb ahead.
  if (auto* const made = std::get_if<Object>(&outcome.value)) {
    made->text = text.substr(text.find(' ') + 1);
  }
  record_.Line(text + ResultText(outcome.result));
  return outcome;
}

}  // namespace tolvane::office
