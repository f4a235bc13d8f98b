#include "logging/log_naming.h"

#include <algorithm>
#include <array>

namespace tolvane {

namespace {

String NumberedName(StringView stem, std::int32_t number, StringView extension) {
  String path(stem);
  path.append(FileNumberText(number)).append(extension);
  return path;
}

/// After so many taken names a search looks into the whole folder, which costs as much as some
/// dozens of single questions. Most searches end before.
constexpr int kAskedSingly = 8;

bool EqualsInAnyCase(StringView a, StringView b) {
  const auto capital = [](char16_t c) {
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
  };
  return std::ranges::equal(a, b, {}, capital, capital);
}

/// Numbers whose files were there at one look into the folder. What it does not tell is asked for
/// singly.
class TakenNumbers {
 public:
  [[nodiscard]] bool Has(std::int32_t number) const {
    return taken_[static_cast<std::size_t>(number)];
  }

  void Find(platform::FileServices& files, StringView stem, StringView extension) {
    const std::size_t ahead = stem.size() - (stem.find_last_of(u"\\/") + 1);
    for (const String& name : files.FileNames(stem)) Note(name, ahead, extension);
  }

 private:
  /// `name` begins with `ahead` characters of the stem.
  void Note(StringView name, std::size_t ahead, StringView extension) {
    if (name.size() < ahead + extension.size()) return;
    const StringView digits = name.substr(ahead, name.size() - ahead - extension.size());
    if (!EqualsInAnyCase(name.substr(ahead + digits.size()), extension)) return;
    const std::int32_t number = FileNumber(digits);
    if (FileNumberText(number).View() == digits) taken_[static_cast<std::size_t>(number)] = true;
  }

  std::array<bool, kFileNumber_MAX + 1> taken_{};
};

}  // namespace

std::int32_t FileNumber(StringView text) {
  std::int32_t number = 0;
  for (const char16_t digit : text) {
    if (digit < u'0' || digit > u'9') return 1;
    number = number * 10 + (digit - u'0');
    if (number > kFileNumber_MAX) return 1;
  }
  return number;
}

StringView PathOfFolder(StringView path) {
  const std::size_t start = path.find_last_of(u"\\/:") + 1;  // 0 without any: npos + 1 is 0
  const StringView name = path.substr(start);
  if (name == u"." || name == u"..") return path;
  return path.substr(0, start + name.find_last_not_of(u" .") + 1);
}

String BaseFolder(std::int32_t mode, String& path, const String& executable_folder,
                  platform::FileServices& files, platform::SpecialFolders& folders) {
  switch (mode) {
    case 0:
      return executable_folder;
    case 1:
      return folders.Desktop();
    case 2:
      if (PathOfFolder(path).empty() || !files.FolderExists(path)) path = folders.Desktop();
      return String(PathOfFolder(path));
    default:
      return {};
  }
}

ShortText DateHourText(const platform::LocalTime& time) {
  ShortText text;
  for (const std::int32_t part : {time.year % 100, time.month, time.day, time.hour}) {
    text.Append(PaddedText(part, 2));
  }
  return text;
}

ShortText FileNumberText(std::int32_t number) { return PaddedText(number, kFileNumberDigits); }

NumberedPath FindFreePath(platform::FileServices& files, StringView stem, StringView extension,
                          std::int32_t number, platform::EventLoop* events) {
  String path = NumberedName(stem, number, extension);
  TakenNumbers taken;
  for (int asked = 1; number < kFileNumber_MAX && (taken.Has(number) || files.FileExists(path));
       ++asked) {
    if (asked == kAskedSingly) taken.Find(files, stem, extension);
    ++number;
    path = NumberedName(stem, number, extension);
    if (events != nullptr) events->YieldWhenDue();
  }
  return {path, number};
}

}  // namespace tolvane
