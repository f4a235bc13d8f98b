#include "simulator/ini_file.h"

#include <algorithm>

#include "simulator/values.h"

namespace tolvane::simulator {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// False when the line is of no kind.
bool TakeLine(std::string_view line, int number, std::string& section, IniFile& ini) {
  if (line.empty() || line.front() == ';' || line.front() == '#') return true;
  if (line.front() == '[') {
    if (line.back() != ']' || line.size() < 2) return false;
    section = Trim(line.substr(1, line.size() - 2));
    if (std::ranges::find(ini.sections, section) == ini.sections.end()) {
      ini.sections.push_back(section);
    }
    return true;
  }
  const std::size_t mark = line.find('=');
  if (mark == std::string_view::npos) return false;
  const std::string_view key = Trim(line.substr(0, mark));
  if (key.empty()) return false;
  const std::string_view value = Trim(line.substr(mark + 1));
  ini.entries.push_back({section, std::string(key), std::string(value), number});
  return true;
}

}  // namespace

const IniFile::Entry* IniFile::Find(std::string_view section, std::string_view key) const {
  const auto found = std::find_if(entries.rbegin(), entries.rend(), [&](const Entry& entry) {
    return entry.section == section && entry.key == key;
  });
  return found == entries.rend() ? nullptr : &*found;
}

IniFile ParseIni(std::string_view text) {
  IniFile ini;
  std::string section;
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = Trim(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!TakeLine(line, number, section, ini)) {
      ini.problems.push_back("line " + std::to_string(number) +
                             ": neither section nor key: " + EscapeText(line));
    }
  }
  return ini;
}

}  // namespace tolvane::simulator
