#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/ini_file.h"

namespace tolvane::simulator {

/// Reads the values of an ini file by name, and remembers which were asked for. A value that cannot
/// be read leaves its target unchanged and is reported as a problem.
class SectionReader {
 public:
  /// `ini` outlives the reader.
  explicit SectionReader(const IniFile& ini) : ini_(ini), problems_(ini.problems) {}

  /// Keys are looked for in `section`, then in `general` unless that is empty.
  void Enter(std::string_view section, std::string_view general = {});

  void Take(std::string_view key, std::string& text);
  /// Integers of any width; the value is refused outside `low` to `high`.
  template <typename Integer>
  void Take(std::string_view key, Integer& number, std::int64_t low, std::int64_t high) {
    std::int64_t value = 0;
    if (TakeNumber(key, low, high, value)) number = static_cast<Integer>(value);
  }
  void TakeDecimal(std::string_view key, double& number, double low, double high);
  /// Decimal seconds into microseconds.
  void TakeSeconds(std::string_view key, std::int64_t& time_us);
  template <typename Choice, std::size_t count>
  void TakeChoice(std::string_view key, Choice& choice,
                  const std::array<std::pair<std::string_view, Choice>, count>& words) {
    const IniFile::Entry* const entry = Look(key);
    if (entry == nullptr) return;
    for (const auto& [word, value] : words) {
      if (entry->value == word) {
        choice = value;
        return;
      }
    }
    Complain(*entry, "no such choice");
  }

  /// The entry, null when there is none; for values with a special form.
  const IniFile::Entry* Look(std::string_view key);
  /// All entries of the entered sections whose key begins with "can" in any case of the "c".
  std::vector<const IniFile::Entry*> LookAtCalls();
  void Complain(const IniFile::Entry& entry, std::string_view why);

  /// Everything that was wrong; keys that nothing asked for come last.
  std::vector<std::string> Problems() const;

 private:
  bool TakeNumber(std::string_view key, std::int64_t low, std::int64_t high, std::int64_t& value);

  const IniFile& ini_;
  std::string section_;
  std::string general_;
  std::set<std::pair<std::string, std::string>> asked_;  // section and key
  std::vector<std::string> problems_;
};

}  // namespace tolvane::simulator
