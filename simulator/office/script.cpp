#include "simulator/office/script.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "simulator/ini_file.h"

namespace tolvane::office {
namespace {

struct Number {
  std::string_view key;
  std::int32_t Script::*field;
  std::int32_t highest;
};

constexpr Number kNumbers[] = {
    {"delay_ms", &Script::delay_ms, 60'000},        {"fail_at", &Script::fail_at, 1'000'000},
    {"fail_creation", &Script::fail_creation, 1},   {"busy_at", &Script::busy_at, 1'000'000},
    {"busy_calls", &Script::busy_calls, 1'000'000}, {"busy_ms", &Script::busy_ms, 60'000}};

constexpr std::string_view kWays[] = {"rejected", "later", "suspended", "exception"};

bool Apply(Script& script, std::string_view key, std::string_view value) {
  if (key == "busy_as") {
    const auto* const way = std::ranges::find(kWays, value);
    if (way == std::end(kWays)) return false;
    script.busy_as = static_cast<BusyAs>(way - std::begin(kWays));
    return true;
  }
  const auto* const number = std::ranges::find(kNumbers, key, &Number::key);
  std::int32_t read = 0;
  const char* const end = value.data() + value.size();
  const auto [stop, error] = std::from_chars(value.data(), end, read);
  if (number == std::end(kNumbers) || error != std::errc() || stop != end || read < 0 ||
      read > number->highest) {
    return false;
  }
  script.*number->field = read;
  return true;
}

}  // namespace

Script ParseScript(std::string_view ini) {
  Script script;
  const simulator::IniFile file = simulator::ParseIni(ini);
  script.problems = file.problems;
  for (const auto& entry : file.entries) {
    if (entry.section != "office" || !Apply(script, entry.key, entry.value)) {
      script.problems.push_back("line " + std::to_string(entry.line) + ": " + entry.key + " = " +
                                entry.value);
    }
  }
  return script;
}

}  // namespace tolvane::office
