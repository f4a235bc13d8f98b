#include "platform/memory/automation/automation.h"

#include "platform/utf8.h"

namespace tolvane::platform::memory {

class AutomationServers::Object final : public platform::AutomationObject {
 public:
  Object(std::shared_ptr<Session> session, std::string path, Version version = {})
      : session_(std::move(session)), path_(std::move(path)), version_(std::move(version)) {
    ++session_->live_objects;
  }
  ~Object() override { --session_->live_objects; }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  void BeginSequence() override { session_->sequences.push_back(session_->operations); }

  std::optional<AutomationResult> Get(StringView name,
                                      std::span<const AutomationArgument> arguments) override {
    std::string path = path_ + "." + ToUtf8(name);
    if (!arguments.empty()) path += "(" + List(arguments) + ")";
    if (!Happens("get " + path)) return {};
    if (name == u"Version") return VersionResult();
    return std::make_unique<Object>(session_, path);
  }

  bool Put(StringView name, const AutomationArgument& value) override {
    if (const auto* table = std::get_if<AutomationTable>(&value)) {
      session_->tables.push_back(
          {std::vector<String>(table->cells.begin(), table->cells.end()), table->columns});
    }
    return Happens("put " + path_ + "." + ToUtf8(name) + " = " + TextOf(value));
  }

  bool Call(StringView name, std::span<const AutomationArgument> arguments,
            std::span<const NamedArgument> named) override {
    std::string list = List(arguments);
    for (const NamedArgument& argument : named) {
      if (!list.empty()) list += ", ";
      list += ToUtf8(argument.name) + ":=" + TextOf(argument.value);
    }
    return Happens("call " + path_ + "." + ToUtf8(name) + "(" + list + ")");
  }

 private:
  /// Notes the operation and lets messages through. False when it is to be refused.
  bool Happens(const std::string& line) {
    ++session_->operations;
    const bool fails = session_->fail_in > 0 && --session_->fail_in == 0;
    session_->journal.Note(fails ? line + " fails" : line);
    if (session_->while_called) session_->while_called();
    return !fails;
  }

  [[nodiscard]] std::optional<AutomationResult> VersionResult() const {
    if (const auto* text = std::get_if<String>(&version_)) return *text;
    if (const auto* number = std::get_if<std::int32_t>(&version_)) return *number;
    if (const auto* number = std::get_if<double>(&version_)) return *number;
    return {};
  }

  static std::string List(std::span<const AutomationArgument> arguments) {
    std::string list;
    for (const AutomationArgument& argument : arguments) {
      if (!list.empty()) list += ", ";
      list += TextOf(argument);
    }
    return list;
  }

  static std::string TextOf(const AutomationArgument& argument) {
    return std::visit([](const auto& value) { return Text(value); }, argument);
  }
  static std::string Text(std::monostate) { return "Empty"; }
  static std::string Text(bool value) { return value ? "True" : "False"; }
  static std::string Text(std::int32_t value) { return std::to_string(value); }
  static std::string Text(const String& value) { return '"' + ToUtf8(value) + '"'; }
  static std::string Text(const AutomationTable& value) {
    if (value.cells.size() == 1 && value.columns == 1) return "table " + Text(value.cells.front());
    return "table " + std::to_string(value.cells.size() / value.columns) + " x " +
           std::to_string(value.columns);
  }
  static std::string Text(platform::AutomationObject* value) {
    const auto* object = dynamic_cast<const Object*>(value);
    return object != nullptr ? object->path_ : "Nothing";
  }

  std::shared_ptr<Session> session_;
  std::string path_;
  Version version_;
};

AutomationServers::AutomationServers(Journal& journal)
    : session_(std::make_shared<Session>(Session{.journal = journal})) {}

void AutomationServers::Register(StringView name, Version version) {
  servers_.insert_or_assign(String(name), std::move(version));
}

std::unique_ptr<platform::AutomationObject> AutomationServers::CreateObject(StringView name) {
  session_->journal.Note("create " + ToUtf8(name));
  const auto server = servers_.find(String(name));
  if (server == servers_.end()) return nullptr;
  return std::make_unique<Object>(session_, ToUtf8(name), server->second);
}

}  // namespace tolvane::platform::memory
