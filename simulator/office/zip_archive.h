#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tolvane::office {

/// A ZIP archive in memory with stored (not compressed) entries, all dated 1 January 1980 so that
/// equal workbooks give equal bytes. Names and contents must stay below 4 GiB together.
class ZipArchive {
 public:
  /// `name` is ASCII with "/" between folders.
  void Add(std::string_view name, std::string_view content);

  /// Ends the archive with its directory; nothing may be added afterwards.
  [[nodiscard]] std::string Finish();

 private:
  std::string local_;    // entries with their contents
  std::string central_;  // the directory, one record per entry
  std::uint32_t entries_ = 0;
};

}  // namespace tolvane::office
