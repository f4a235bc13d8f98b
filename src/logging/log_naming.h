#pragma once

#include <cstdint>

#include "platform/event_loop.h"
#include "platform/file_services.h"
#include "platform/local_time.h"
#include "platform/string.h"
#include "run/number_text.h"

namespace tolvane {

// How log files and snapshots find their folder and a free name.

// A log's name is its prefix, DateHourText, kLogNumberGap, FileNumberText and its extension.
inline constexpr StringView kLogPrefix = u"KL";
inline constexpr StringView kLogNumberGap = u"-";
inline constexpr StringView kCsvExtension = u".csv";

constexpr std::int32_t kFileNumber_MAX = 1000;  // the search for a free name stops here

/// Digits of DateHourText.
constexpr std::size_t kDateHourDigits = StringView(u"yymmddhh").size();
/// Characters, with the backslash ahead.
constexpr std::size_t kLongestLogName = 1 + kLogPrefix.size() + kDateHourDigits +
                                        kLogNumberGap.size() + StringView(u"1000.xlsx").size();
static_assert(kFileNumber_MAX <= 9999, "the name above has four digits");
constexpr std::size_t kWorkbookPath_MAX = 218;  // of a path that Excel saves to

/// The longest path of a folder that takes every log file of a run.
constexpr std::size_t kLogFolder_MAX = platform::kPath_MAX - kLongestLogName;
/// The same where a spreadsheet server saves them.
constexpr std::size_t kWorkbookFolder_MAX = kWorkbookPath_MAX - kLongestLogName;

/// `path` without blanks and periods at its end. Windows drops them at the end of a path but not in
/// the middle, so a file's path built on `path` itself would not be found.
[[nodiscard]] StringView PathOfFolder(StringView path);

/// The folder that a setting means: mode 0 the executable's folder, 1 the desktop, 2 the folder
/// `path`, any other mode none (empty). In mode 2, when the folder is missing, `path`, which is the
/// setting itself, is set to the desktop.
[[nodiscard]] String BaseFolder(std::int32_t mode, String& path, const String& executable_folder,
                                platform::FileServices& files, platform::SpecialFolders& folders);

/// Of kDateHourDigits digits.
[[nodiscard]] ShortText DateHourText(const platform::LocalTime& time);

constexpr std::size_t kFileNumberDigits = 3;

/// At least kFileNumberDigits digits.
[[nodiscard]] ShortText FileNumberText(std::int32_t number);

/// The number in a text that FileNumberText made; 1 for any other text.
[[nodiscard]] std::int32_t FileNumber(StringView text);

struct NumberedPath {
  String path;
  std::int32_t number;
};

/// Counts up from `number` to the first path `stem` + number + `extension` that does not exist.
/// Stops at kFileNumber_MAX, whose path may exist. With `events`, yields once for each taken name.
[[nodiscard]] NumberedPath FindFreePath(platform::FileServices& files, StringView stem,
                                        StringView extension, std::int32_t number,
                                        platform::EventLoop* events);

}  // namespace tolvane
