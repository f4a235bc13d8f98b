#include "tools/log/linux/file_streams.h"

#include <sys/types.h>

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

bool FileSource::SkipToLast(std::size_t bytes) {
  if (fseeko(file_.get(), -static_cast<off_t>(bytes), SEEK_END) == 0) return true;
  return fseeko(file_.get(), 0, SEEK_SET) == 0;
}

FileSink::FileSink(File file) : file_(std::move(file)) {
  static_cast<void>(std::setvbuf(file_.get(), nullptr, _IONBF, 0));
}

bool FileSink::Write(std::string_view bytes) { return WriteTo(file_.get(), bytes); }

bool StandardSink::Write(std::string_view bytes) { return WriteTo(stream_, bytes); }

}  // namespace tolvane::logtool
