#pragma once

#include "platform/windows/system/handle.h"
#include "tools/log/reading/bytes.h"

namespace tolvane::logtool {

using platform::windows::FileHandle;

class FileSource final : public ByteSource {
 public:
  explicit FileSource(FileHandle file) : file_(std::move(file)) {}
  [[nodiscard]] std::optional<std::size_t> Read(std::span<char> room) override;
  [[nodiscard]] bool SkipToLast(std::size_t bytes) override;

 private:
  FileHandle file_;
};

class FileSink final : public ByteSink {
 public:
  explicit FileSink(FileHandle file) : file_(std::move(file)) {}
  [[nodiscard]] bool Write(std::string_view bytes) override;

 private:
  FileHandle file_;
};

/// One of the streams that a program has from its start; it is closed with this. A console gets
/// characters, whatever its code page; files and pipes get the UTF-8 as it is.
class StandardSink final : public ByteSink {
 public:
  /// STD_OUTPUT_HANDLE or STD_ERROR_HANDLE.
  explicit StandardSink(DWORD stream);
  [[nodiscard]] bool Write(std::string_view bytes) override;

 private:
  FileHandle stream_;
  bool is_console_;
};

}  // namespace tolvane::logtool
