#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/memory/system/file_system.h"
#include "tests/fuzz/bus_frame.h"

namespace tolvane::fuzz {

/// The files of a machine in memory, and what became of the logs among them.
class JudgedFiles final : public platform::FileServices {
 public:
  explicit JudgedFiles(platform::memory::FileSystem& files) : files_(files) {}

  /// What the logs came to since the last Forget.
  struct Logs {
    std::vector<LoggedFrame> frames{};  // in files that were written whole
    std::vector<std::string> times{};   // of each of them, as it stands in its record
    std::size_t failures = 0;           // files that were not
    std::size_t whole_since = 0;        // files written whole behind the last failure
  };
  [[nodiscard]] const Logs& Seen() const { return logs_; }
  void Forget() { logs_ = {}; }

  bool FolderExists(StringView path) override { return files_.FolderExists(path); }
  bool FileExists(StringView path) override { return files_.FileExists(path); }
  std::vector<String> FileNames(StringView stem) override { return files_.FileNames(stem); }
  bool CreateFolder(StringView path) override { return files_.CreateFolder(path); }
  std::unique_ptr<platform::TextStream> CreateTextFile(StringView path, bool overwrite,
                                                       bool unicode) override;
  bool DeleteFile(StringView path, bool force) override { return files_.DeleteFile(path, force); }
  std::optional<platform::BinaryRead> ReadBinary(StringView path, std::size_t size) override {
    return files_.ReadBinary(path, size);
  }
  bool WriteBinary(StringView path, std::span<const std::byte> bytes) override {
    return files_.WriteBinary(path, bytes);
  }
  std::optional<std::int32_t> Attributes(StringView path) override {
    return files_.Attributes(path);
  }

 private:
  class Stream;
  void Note(bool is_whole, StringView path);

  platform::memory::FileSystem& files_;
  Logs logs_;
};

}  // namespace tolvane::fuzz
