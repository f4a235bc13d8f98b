#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolvane::simulator {

/// Text in sections:
///
///   line    = "[" section "]" | key "=" value | (";" | "#") comment | blank
///
/// Blanks around names and values do not count. Keys before the first section belong to "".
struct IniFile {
  struct Entry {
    std::string section;
    std::string key;
    std::string value;
    int line;  // from 1
  };

  std::vector<std::string> sections;  // in order, each once
  std::vector<Entry> entries;
  std::vector<std::string> problems;  // one text for each line that is none of these

  /// The last entry of that name, null when there is none.
  const Entry* Find(std::string_view section, std::string_view key) const;
};

IniFile ParseIni(std::string_view text);

}  // namespace tolvane::simulator
