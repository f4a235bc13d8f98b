#pragma once

#include <cstdint>

#include "platform/event_loop.h"
#include "platform/file_services.h"
#include "platform/local_time.h"
#include "platform/string.h"
#include "run/number_text.h"

namespace tolvane {

// How log files and snapshots find their folder and a free name.

constexpr std::int32_t kFileNumber_MAX = 1000;  // the search for a free name stops here

constexpr std::size_t kLongestLogName = StringView(u"\\KLyymmddhh-1000.xlsx").size();
constexpr std::size_t kWorkbookPath_MAX = 218;  // of a path that Excel saves to

/// The longest path of a folder that takes every log file of a run.
constexpr std::size_t kLogFolder_MAX = platform::kPath_MAX - kLongestLogName;
/// The same where a spreadsheet server saves them.
constexpr std::size_t kWorkbookFolder_MAX = kWorkbookPath_MAX - kLongestLogName;

/// The path within which the folder `path` has its files: the system drops blanks and periods at
/// the end of a path, and would miss a folder of that name within one.
[[nodiscard]] StringView PathOfFolder(StringView path);

/// Where a folder setting leads: mode 0 the executable's folder, 1 the desktop, 2 the folder named
/// by `path`, any other nowhere (empty). In mode 2 a missing folder overwrites `path`, and thereby
/// the setting, with the desktop.
[[nodiscard]] String BaseFolder(std::int32_t mode, String& path, const String& executable_folder,
                                platform::FileServices& files, platform::SpecialFolders& folders);

/// "yymmddhh".
[[nodiscard]] ShortText DateHourText(const platform::LocalTime& time);

/// Three digits, four from 1000 on.
[[nodiscard]] ShortText FileNumberText(std::int32_t number);

struct NumberedPath {
  String path;
  std::int32_t number;
};

/// The first path `stem` + number + `extension` from `number` on that does not exist, or that of
/// kFileNumber_MAX, existing or not. With `events`, yields once for each taken name.
[[nodiscard]] NumberedPath FindFreePath(platform::FileServices& files, StringView stem,
                                        StringView extension, std::int32_t number,
                                        platform::EventLoop* events);

}  // namespace tolvane
