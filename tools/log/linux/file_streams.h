#pragma once

#include <cstdio>
#include <memory>

#include "tools/log/reading/bytes.h"

namespace tolvane::logtool {

struct FileCloser {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
/// Without a buffer of its own: whoever reads or writes here does so in large blocks.
using File = std::unique_ptr<std::FILE, FileCloser>;

class FileSource final : public ByteSource {
 public:
  explicit FileSource(File file);
  [[nodiscard]] std::optional<std::size_t> Read(std::span<char> room) override;
  [[nodiscard]] bool SkipToLast(std::size_t bytes) override;

 private:
  File file_;
};

class FileSink final : public ByteSink {
 public:
  explicit FileSink(File file);
  [[nodiscard]] bool Write(std::string_view bytes) override;

 private:
  File file_;
};

/// One of the streams that a program has from its start.
class StandardSink final : public ByteSink {
 public:
  explicit StandardSink(std::FILE* stream) : stream_(stream) {}
  [[nodiscard]] bool Write(std::string_view bytes) override;

 private:
  std::FILE* stream_;
};

}  // namespace tolvane::logtool
