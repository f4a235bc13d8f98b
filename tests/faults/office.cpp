#include "tests/faults/office.h"

#include <optional>
#include <string>
#include <variant>

#include "logging/log_table.h"
#include "platform/byte_text.h"
#include "platform/utf8.h"

namespace tolvane::faults {
namespace {

using Arguments = std::span<const platform::AutomationArgument>;
using NamedArguments = std::span<const platform::NamedArgument>;

constexpr std::size_t kFirstByte = 4;  // columns of a record

FrameNumber NumberOf(std::span<const String> row) {
  std::string bytes;
  for (const String& cell : row.subspan(kFirstByte)) {
    if (!bytes.empty()) bytes += ',';
    bytes += NarrowText(cell);
  }
  return WrittenLogs::NumberOf(bytes);
}

}  // namespace

class Office::Object final : public platform::AutomationObject {
 public:
  explicit Object(Office& office) : office_(office) { ++office_.live_objects_; }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  ~Object() override { --office_.live_objects_; }

  void BeginSequence() override {}

  std::optional<platform::AutomationResult> Get(StringView name, Arguments) override {
    if (office_.Fails("get")) return std::nullopt;
    if (name == u"Version") return String(u"16.0");
    return std::make_unique<Object>(office_);
  }

  bool Put(StringView name, const platform::AutomationArgument& value) override {
    if (office_.Fails("put")) return false;
    const auto* const table = std::get_if<platform::AutomationTable>(&value);
    if (name == u"Value" && table != nullptr) office_.Fill(*table);
    return true;
  }

  bool Call(StringView name, Arguments, NamedArguments named) override {
    if (office_.Fails("call")) return false;
    if (name == u"Add") office_.sheet_.clear();
    if (name == u"SaveAs") office_.Save(std::get<String>(named.front().value));
    if (name == u"Close") office_.logs_.ClosedWorkbook();
    return true;
  }

 private:
  Office& office_;
};

std::unique_ptr<platform::AutomationObject> Office::CreateObject(StringView) {
  if (Fails("CreateObject")) return nullptr;
  return std::make_unique<Object>(*this);
}

/// Records come in one table, whose rows are filled from the first one on; a head has one row.
void Office::Fill(const platform::AutomationTable& table) {
  if (table.columns != LogTable::kColumns || table.cells.size() == table.columns) return;
  for (std::span rows = table.cells; !rows.empty() && !rows.front().empty();
       rows = rows.subspan(table.columns)) {
    sheet_.push_back(NumberOf(rows.first(table.columns)));
  }
}

void Office::Save(StringView path) {
  files_.AddFile(path, "workbook of " + std::to_string(sheet_.size()) + " rows");
  logs_.Saved(path, sheet_);
}

}  // namespace tolvane::faults
