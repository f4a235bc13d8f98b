#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/log/convert/convert.h"
#include "tools/log/info/info.h"

namespace tolvane::logtool {

enum class Verb : std::uint8_t { kHelp, kVersion, kInfo, kConvert };

struct Options {
  Verb verb = Verb::kHelp;
  InfoWishes info;
  std::optional<Format> format;
  std::string out;  // empty for the standard output
  bool mends_clock = false;
  bool keep = false;
  std::vector<std::string> files;
};

struct ReadOptions {
  std::optional<Options> options;
  std::string refusal;  // why there are none
};

/// Of the words behind the program's name.
[[nodiscard]] ReadOptions OptionsOf(const std::vector<std::string>& words);

/// What --help says.
[[nodiscard]] std::string_view HelpText();

}  // namespace tolvane::logtool
