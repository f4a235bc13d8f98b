#include "logging/log_record.h"
#include "platform/utf8.h"
#include "run/number_text.h"
#include "tools/log/info/report.h"

namespace tolvane::logtool {

std::string IdentifierText(const IdentifierStatistics& identifier) {
  const auto id = static_cast<std::int32_t>(identifier.id);
  return ToUtf8(identifier.extended ? LogID29Text(id) : HexID11Text(id));
}

std::string NumberText(double number) { return ToUtf8(DecimalText(number)); }

std::string LengthsText(std::uint32_t lengths) {
  std::string text;
  for (std::int32_t length = 0; length <= 15; ++length) {
    if ((lengths >> length & 1U) == 0) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(length);
  }
  if ((lengths & IdentifierStatistics::kOtherLengths) == 0) return text;
  return text + (text.empty() ? "others" : ", others");
}

}  // namespace tolvane::logtool
