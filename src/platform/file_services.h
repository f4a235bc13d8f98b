#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/string.h"

namespace tolvane::platform {

constexpr std::size_t kPath_MAX = 259;  // characters of the longest path that can be opened

/// A text file open for writing, 8-bit in the system code page.
class TextStream {
 public:
  virtual ~TextStream() = default;
  /// Characters that the code page cannot hold become "?". False when not all could be written.
  [[nodiscard]] virtual bool Write(StringView text) = 0;
  /// False when what was written may not have reached the file. Destruction closes silently.
  [[nodiscard]] virtual bool Close() = 0;
};

/// What was read of a file.
struct BinaryRead {
  std::vector<std::byte> bytes;
  bool closed;  // false when the file was read but could not be closed
};

/// Files and folders. Paths use the backslash. Nothing here pumps messages.
class FileServices {
 public:
  virtual ~FileServices() = default;

  [[nodiscard]] virtual bool FolderExists(StringView path) = 0;
  /// True also where the place answers but does not tell, as a share that fails for a moment: a new
  /// file must not take the place of one that may be there. False where the place cannot be reached
  /// at all: nothing can be written there either, and a search for a free name would ask a thousand
  /// times.
  [[nodiscard]] virtual bool FileExists(StringView path) = 0;
  /// The names, without their folder, of the files whose paths begin with `stem`, whatever the case
  /// of their letters; none when they cannot be told. One look into a folder, where asking for file
  /// after file would take hundreds.
  [[nodiscard]] virtual std::vector<String> FileNames(StringView stem) = 0;
  /// One level; false also when the folder exists already.
  [[nodiscard]] virtual bool CreateFolder(StringView path) = 0;
  /// Null on failure. With `overwrite` an existing file is replaced, without it refused. The
  /// program writes 8-bit text only, so `unicode` is always false.
  [[nodiscard]] virtual std::unique_ptr<TextStream> CreateTextFile(StringView path, bool overwrite,
                                                                   bool unicode) = 0;
  /// With `force` read-only files too.
  virtual bool DeleteFile(StringView path, bool force) = 0;

  /// The first `size` bytes of a file, fewer when it is shorter; empty when it cannot be read. May
  /// wait up to a second where a power cut stopped WriteBinary.
  [[nodiscard]] virtual std::optional<BinaryRead> ReadBinary(StringView path, std::size_t size) = 0;
  /// Writes `bytes` at the start of a file, made if it is missing; what lies behind them stays.
  /// False when not all of them may have reached it. A power cut on the way leaves the old or the
  /// new file to ReadBinary (file_replacing.h). May wait up to a second until no other program
  /// holds it.
  [[nodiscard]] virtual bool WriteBinary(StringView path, std::span<const std::byte> bytes) = 0;

  /// The attribute value of a file or folder (16 is a plain folder); empty when there is none.
  [[nodiscard]] virtual std::optional<std::int32_t> Attributes(StringView path) = 0;
};

/// Folders that the system knows. None ends in a backslash; empty when the system has none.
class SpecialFolders {
 public:
  virtual ~SpecialFolders() = default;
  /// "Desktop" of the signed-in user.
  [[nodiscard]] virtual String Desktop() = 0;
  /// Where the vendors' libraries stand.
  [[nodiscard]] virtual String System() = 0;
};

}  // namespace tolvane::platform
