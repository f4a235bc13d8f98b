#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "platform/file_services.h"
#include "platform/string.h"

namespace tolvane::platform {

/// How a step on a file went.
enum class FileStep : std::uint8_t {
  kDone,
  kBusy,  // access denied, a sharing or a lock violation: another program may let go in a moment
  kFailed,
};

/// A file open for writing. Destruction closes it silently.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// All of `bytes` behind what was written so far, from the file's start on.
  [[nodiscard]] virtual FileStep Write(std::span<const std::byte> bytes) = 0;
  /// The file ends behind what was written.
  [[nodiscard]] virtual FileStep EndHere() = 0;
  /// From now on a power cut takes nothing of it. Before, it can leave any part of what was
  /// written, even under another name that the file got meanwhile. Done also where the file system
  /// knows no such thing and brings all to the disk in its own time.
  [[nodiscard]] virtual FileStep Flush() = 0;
  [[nodiscard]] virtual FileStep Close() = 0;
};

/// The single steps of file_replacing.h. A file is made and deleted whole or, in a power cut, not
/// at all.
class FileSteps {
 public:
  struct Opened {
    FileStep step = FileStep::kFailed;
    std::unique_ptr<OutputFile> file = {};  // null unless done
  };

  virtual ~FileSteps() = default;

  /// An empty file, new or in the place of an old one.
  [[nodiscard]] virtual Opened Create(StringView path) = 0;
  /// The file with its content, made if it is missing.
  [[nodiscard]] virtual Opened Open(StringView path) = 0;
  /// `from` gets the name `to`; a file of that name is gone.
  [[nodiscard]] virtual FileStep Move(StringView from, StringView to) = 0;
  /// Whether Move, too, does all or nothing in a power cut. Where it does not, neither name may be
  /// left: file systems without a journal, as on memory cards and sticks.
  [[nodiscard]] virtual bool MovesWhole(StringView path) = 0;
  /// Done also when there is none.
  [[nodiscard]] virtual FileStep Delete(StringView path) = 0;
  [[nodiscard]] virtual bool Exists(StringView path) = 0;
  [[nodiscard]] virtual bool IsReadOnly(StringView path) = 0;
  /// As FileServices::ReadBinary, of this very file.
  [[nodiscard]] virtual std::optional<BinaryRead> Read(StringView path, std::size_t size) = 0;
  /// Stops the program for `ms`.
  virtual void Pause(std::int32_t ms) = 0;
};

}  // namespace tolvane::platform
