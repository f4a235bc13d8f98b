#include "tools/log/linux/file_bytes.h"

#include <utility>

namespace tolvane::logtool {

namespace {

bool WriteTo(std::FILE* stream, std::string_view bytes) {
  return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() &&
         std::fflush(stream) == 0;
}

}  // namespace

FileSource::FileSource(File file) : file_(std::move(file)) {
  static_cast<void>(std::setvbuf(file_.get(), nullptr, _IONBF, 0));
}

std::optional<std::size_t> FileSource::Read(std::span<char> room) {
  const std::size_t read = std::fread(room.data(), 1, room.size(), file_.get());
  if (read == 0 && std::ferror(file_.get()) != 0) return {};
  return read;
}

FileSink::FileSink(File file) : file_(std::move(file)) {
  static_cast<void>(std::setvbuf(file_.get(), nullptr, _IONBF, 0));
}

bool FileSink::Write(std::string_view bytes) { return WriteTo(file_.get(), bytes); }

bool StandardSink::Write(std::string_view bytes) { return WriteTo(stream_, bytes); }

}  // namespace tolvane::logtool
