#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "tools/log/reading/bytes.h"

namespace tolvane::logtool {

/// Tells a file from all others, whatever path it is opened by: its disk and its number there.
struct FileIdentity {
  std::uint64_t disk;
  std::uint64_t number;

  bool operator==(const FileIdentity&) const = default;
};

/// What opening a file gave: its bytes, or none and why.
template <typename Bytes>
struct Opened {
  std::unique_ptr<Bytes> bytes;
  std::string why_not = {};                   // such as "this is a folder"
  std::optional<FileIdentity> identity = {};  // of a source; none where it is not known
};

/// The files of this machine. Paths are UTF-8, on Linux whatever bytes the system has.
class LogFiles {
 public:
  virtual ~LogFiles() = default;
  /// From the beginning. A file on a disk alone, as it is opened more than once.
  [[nodiscard]] virtual Opened<ByteSource> Open(const std::string& path) = 0;
  /// A new one; none where there is one already.
  [[nodiscard]] virtual Opened<ByteSink> Create(const std::string& path) = 0;
  virtual void Remove(const std::string& path) = 0;
};

// Reasons that are not the system's.
inline constexpr const char* kIsFolder = "this is a folder";
inline constexpr const char* kIsNoFile =
    "this is no file on a disk, and logs are read more than once; copy it into one";
inline constexpr const char* kIsThere = "this file is there already";

}  // namespace tolvane::logtool
