#include "tests/soak/taken_names.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>

#include "tests/soak/numbered_logs.h"

namespace tolvane::soak {

std::vector<std::string> TakeNames(const std::filesystem::path& folder, std::time_t from,
                                   std::time_t to, std::int64_t count) {
  constexpr std::time_t kHour = 3600;
  std::vector<std::string> names;
  for (std::time_t at = from; at / kHour <= to / kHour; at += kHour) {
    for (std::int64_t number = 1; number <= count; ++number) {
      std::array<char, 32> name;
      std::snprintf(name.data(), name.size(), "KL%s-%03lld.csv", HourOf(at).c_str(),
                    static_cast<long long>(number));
      std::ofstream(folder / name.data(), std::ios::binary) << kTakenText;
      names.emplace_back(name.data());
    }
  }
  return names;
}

bool OnlyTakesAName(const std::filesystem::path& file) {
  // A log is longer; no more of it is read.
  std::string text(kTakenText.size() + 1, '\0');
  std::ifstream stream(file, std::ios::binary);
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  return text == kTakenText;
}

std::vector<std::string> ChangedNames(const std::filesystem::path& folder,
                                      const std::vector<std::string>& names) {
  std::vector<std::string> changed = names;
  std::erase_if(changed, [&](const std::string& name) { return OnlyTakesAName(folder / name); });
  return changed;
}

}  // namespace tolvane::soak
