#include "tests/fuzz/judged_servers.h"

#include <span>
#include <variant>

namespace tolvane::fuzz {

class JudgedServers::Object final : public platform::AutomationObject {
 public:
  explicit Object(JudgedServers& servers) : servers_(servers) {}

  void BeginSequence() override {}
  std::optional<platform::AutomationResult> Get(
      StringView name, std::span<const platform::AutomationArgument>) override {
    if (!servers_.Operate()) return std::nullopt;
    if (name == u"Version") return *servers_.version_;
    return std::make_unique<Object>(servers_);
  }
  bool Put(StringView name, const platform::AutomationArgument& value) override {
    if (!servers_.Operate()) return false;
    const auto* const table = std::get_if<platform::AutomationTable>(&value);
    if (name == u"Value" && table != nullptr) servers_.Count(*table);
    return true;
  }
  bool Call(StringView, std::span<const platform::AutomationArgument>,
            std::span<const platform::NamedArgument>) override {
    return servers_.Operate();
  }

 private:
  JudgedServers& servers_;
};

std::unique_ptr<platform::AutomationObject> JudgedServers::CreateObject(StringView) {
  if (!version_) return nullptr;
  return std::make_unique<Object>(*this);
}

bool JudgedServers::Operate() {
  if (while_called_) while_called_();
  if (fail_in_ == 0 || --fail_in_ > 0) return true;
  ++failures_;
  return false;
}

/// Records come in one table, whose rows are filled from the first one on.
void JudgedServers::Count(const platform::AutomationTable& table) {
  if (table.cells.size() == table.columns) return;  // a head
  for (std::size_t cell = 0; cell < table.cells.size(); cell += table.columns) {
    if (table.cells[cell].empty()) return;
    ++rows_;
  }
}

}  // namespace tolvane::fuzz
