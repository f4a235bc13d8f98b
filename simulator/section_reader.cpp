#include "simulator/section_reader.h"

#include "simulator/values.h"

namespace tolvane::simulator {
namespace {

std::string Describe(const IniFile::Entry& entry, std::string_view why) {
  return "line " + std::to_string(entry.line) + ": " + EscapeText(entry.key) + ": " +
         std::string(why);
}

bool IsCall(std::string_view key) { return key.starts_with("can") || key.starts_with("Can"); }

}  // namespace

void SectionReader::Enter(std::string_view section, std::string_view general) {
  section_ = section;
  general_ = general;
}

const IniFile::Entry* SectionReader::Look(std::string_view key) {
  asked_.insert({section_, std::string(key)});
  const IniFile::Entry* const own = ini_.Find(section_, key);
  if (general_.empty()) return own;
  asked_.insert({general_, std::string(key)});
  return own != nullptr ? own : ini_.Find(general_, key);
}

std::vector<const IniFile::Entry*> SectionReader::LookAtCalls() {
  std::vector<const IniFile::Entry*> calls;
  for (const IniFile::Entry& entry : ini_.entries) {
    const bool here = entry.section == section_ || (!general_.empty() && entry.section == general_);
    if (here && IsCall(entry.key) && Look(entry.key) == &entry) calls.push_back(&entry);
  }
  return calls;
}

void SectionReader::Complain(const IniFile::Entry& entry, std::string_view why) {
  std::string problem = Describe(entry, why);
  // A bad value in the general section is reported once, not once for each section that uses it.
  for (const std::string& known : problems_) {
    if (known == problem) return;
  }
  problems_.push_back(std::move(problem));
}

void SectionReader::Take(std::string_view key, std::string& text) {
  const IniFile::Entry* const entry = Look(key);
  if (entry == nullptr) return;
  if (auto plain = UnescapeText(entry->value)) {
    text = *std::move(plain);
  } else {
    Complain(*entry, "not \\xNN or \\\\");
  }
}

bool SectionReader::TakeNumber(std::string_view key, std::int64_t low, std::int64_t high,
                               std::int64_t& value) {
  const IniFile::Entry* const entry = Look(key);
  if (entry == nullptr) return false;
  const auto number = ParseInteger(entry->value);
  if (!number || *number < low || *number > high) {
    Complain(*entry, "not a number in range");
    return false;
  }
  value = *number;
  return true;
}

void SectionReader::TakeDecimal(std::string_view key, double& number, double low, double high) {
  const IniFile::Entry* const entry = Look(key);
  if (entry == nullptr) return;
  const auto value = ParseDecimal(entry->value);
  if (!value || *value < low || *value > high) {
    Complain(*entry, "not a number in range");
    return;
  }
  number = *value;
}

void SectionReader::TakeSeconds(std::string_view key, std::int64_t& time_us) {
  constexpr double kLongest = 1e9;
  double seconds = -1;
  TakeDecimal(key, seconds, 0, kLongest);
  if (seconds >= 0) time_us = static_cast<std::int64_t>(seconds * 1e6);
}

std::vector<std::string> SectionReader::Problems() const {
  std::vector<std::string> problems = problems_;
  for (const IniFile::Entry& entry : ini_.entries) {
    if (!asked_.contains({entry.section, entry.key})) {
      problems.push_back(Describe(entry, "no such key in this section"));
    }
  }
  return problems;
}

}  // namespace tolvane::simulator
