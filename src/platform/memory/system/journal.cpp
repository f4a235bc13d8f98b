#include "platform/memory/system/journal.h"

#include <utility>

#include "platform/utf8.h"
#include "run/number_text.h"

namespace tolvane::platform::memory {

void Journal::Note(std::string line) { lines_.push_back(std::move(line)); }

void Journal::Assign(const std::string& control, const char* property, bool value) {
  Note(control + "." + property + " = " + (value ? "true" : "false"));
}

void Journal::Assign(const std::string& control, const char* property, StringView value) {
  Note(control + "." + property + " = \"" + ToUtf8(value) + "\"");
}

void Journal::Assign(const std::string& control, const char* property, double value) {
  Note(control + "." + property + " = " + ToUtf8(DecimalText(value)));
}

}  // namespace tolvane::platform::memory
