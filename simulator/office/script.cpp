#include "simulator/office/script.h"

#include <charconv>
#include <optional>
#include <utility>

#include "simulator/ini_file.h"

namespace tolvane::office {
namespace {

template <typename Number>
std::optional<Number> ParseNumber(std::string_view text, Number highest, int base) {
  Number number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, base);
  if (error != std::errc() || stop != end || number < 0 || number > highest) return std::nullopt;
  return number;
}

template <typename Field, typename Number>
bool Assign(Field& field, std::optional<Number> number) {
  if (number) field = static_cast<Field>(*number);
  return number.has_value();
}

std::optional<BusyAs> ParseBusyAs(std::string_view text) {
  constexpr std::pair<std::string_view, BusyAs> kWays[] = {{"rejected", BusyAs::kRejected},
                                                           {"later", BusyAs::kLater},
                                                           {"suspended", BusyAs::kSuspended},
                                                           {"exception", BusyAs::kException}};
  for (const auto& [name, way] : kWays) {
    if (name == text) return way;
  }
  return std::nullopt;
}

bool Apply(Script& script, std::string_view key, std::string_view value) {
  if (key == "record") {
    script.record = value;
    return true;
  }
  if (key == "delay_ms") return Assign(script.delay_ms, ParseNumber<int>(value, 60'000, 10));
  if (key == "fail_at") return Assign(script.fail_at, ParseNumber<int>(value, 1'000'000'000, 10));
  if (key == "fail_with") {
    return Assign(script.fail_with, ParseNumber<std::uint32_t>(value, 0xFFFFFFFF, 16));
  }
  if (key == "fail_creation") return Assign(script.fail_creation, ParseNumber<int>(value, 1, 10));
  if (key == "busy_at") return Assign(script.busy_at, ParseNumber<int>(value, 1'000'000'000, 10));
  if (key == "busy_calls") return Assign(script.busy_calls, ParseNumber<int>(value, 1'000'000, 10));
  if (key == "busy_ms") return Assign(script.busy_ms, ParseNumber<int>(value, 60'000, 10));
  if (key == "busy_as") return Assign(script.busy_as, ParseBusyAs(value));
  return false;
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
