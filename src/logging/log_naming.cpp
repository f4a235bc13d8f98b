#include "logging/log_naming.h"

namespace tolvane {

namespace {

String NumberedName(StringView stem, std::int32_t number, StringView extension) {
  String path(stem);
  path.append(FileNumberText(number)).append(extension);
  return path;
}

}  // namespace

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
  while (files.FileExists(path) && number < kFileNumber_MAX) {
    ++number;
    path = NumberedName(stem, number, extension);
    if (events != nullptr) events->YieldToEvents();
  }
  return {path, number};
}

}  // namespace tolvane
