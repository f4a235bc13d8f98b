#include "tests/simulator/office/direct_client.h"

#include <type_traits>
#include <utility>

namespace tolvane::office {

DirectClient::DirectClient(Server& server) : server_(server) {
  std::optional<Object> program = server_.Create();
  objects_.push_back(program.value_or(Object{}));
}

Value DirectClient::ToValue(const Argument& argument) const {
  return std::visit(
      [&](const auto& value) -> Value {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, Handle>) {
          return objects_[value.index];
        } else {
          return value;
        }
      },
      argument);
}

Outcome DirectClient::Invoke(Handle object, Verb verb, StringView name,
                             const std::vector<Argument>& arguments,
                             const std::vector<NamedArgument>& named) {
  Arguments values;
  for (const Argument& argument : arguments) values.positional.push_back(ToValue(argument));
  for (const NamedArgument& argument : named) {
    auto& field =
        NameId(argument.name) == NameId(u"FileName") ? values.file_name : values.file_format;
    field = ToValue(argument.value);
  }
  const Object target = objects_[object.index];
  const std::int32_t member = server_.FindMember(target, name);
  Outcome outcome = member == 0 ? Outcome{kUnknownName, {}}
                                : server_.Invoke(target, verb, member, std::move(values));
  if (outcome.result != kDone) failures.push_back(outcome.result);
  return outcome;
}

SampleClient::Handle DirectClient::Get(Handle object, StringView name,
                                       const std::vector<Argument>& arguments) {
  const Outcome outcome = Invoke(object, Verb::kGet, name, arguments, {});
  const Object* const made = std::get_if<Object>(&outcome.value);
  objects_.push_back(made == nullptr ? Object{} : *made);
  return {objects_.size() - 1};
}

String DirectClient::GetText(Handle object, StringView name) {
  const Outcome outcome = Invoke(object, Verb::kGet, name, {}, {});
  const String* const text = std::get_if<String>(&outcome.value);
  return text == nullptr ? String() : *text;
}

void DirectClient::Put(Handle object, StringView name, const Argument& value) {
  Invoke(object, Verb::kPut, name, {value}, {});
}

void DirectClient::Call(Handle object, StringView name, const std::vector<Argument>& arguments,
                        const std::vector<NamedArgument>& named) {
  Invoke(object, Verb::kCall, name, arguments, named);
}

}  // namespace tolvane::office
