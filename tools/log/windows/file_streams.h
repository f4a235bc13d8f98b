#pragma once

#include "platform/windows/system/handle.h"
#include "tools/log/reading/bytes.h"

namespace tolvane::logtool {

using FileHandle = platform::windows::Handle<platform::windows::FileTraits>;

class FileSource final : public ByteSource {
 public:
  explicit FileSource(FileHandle file) : file_(std::move(file)) {}
  [[nodiscard]] std::optional<std::size_t> Read(std::span<char> room) override;

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

/// One of the streams that a program has from its start. A console gets characters, whatever its
/// code page; files and pipes get the UTF-8 as it is.
class StandardSink final : public ByteSink {
 public:
  /// STD_OUTPUT_HANDLE or STD_ERROR_HANDLE.
  explicit StandardSink(DWORD stream);
  [[nodiscard]] bool Write(std::string_view bytes) override;

 private:
  HANDLE stream_;
  bool is_console_;
};

/// Without what is no UTF-8.
[[nodiscard]] std::wstring WideOf(std::string_view utf8);

}  // namespace tolvane::logtool
