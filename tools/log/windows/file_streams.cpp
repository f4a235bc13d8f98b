#include "tools/log/windows/file_streams.h"

#include <algorithm>
#include <string>

#include "platform/windows/system/file_bytes.h"
#include "tools/drive/text.h"

namespace tolvane::logtool {

namespace {

// No call takes more than this.
constexpr std::size_t kPiece_MAX = std::size_t{1} << 20;
constexpr std::size_t kConsolePiece_MAX = 8192;

bool WriteBytes(const FileHandle& file, std::string_view bytes) {
  return platform::windows::WriteAll(file, std::as_bytes(std::span(bytes)));
}

bool WriteToConsole(HANDLE console, std::wstring_view text) {
  while (!text.empty()) {
    const auto piece = static_cast<DWORD>(std::min(text.size(), kConsolePiece_MAX));
    DWORD written = 0;
    if (!WriteConsoleW(console, text.data(), piece, &written, nullptr) || written == 0) {
      return false;
    }
    text.remove_prefix(written);
  }
  return true;
}

}  // namespace

std::optional<std::size_t> FileSource::Read(std::span<char> room) {
  DWORD read = 0;
  const auto wanted = static_cast<DWORD>(std::min(room.size(), kPiece_MAX));
  if (!ReadFile(file_.Get(), room.data(), wanted, &read, nullptr)) return {};
  return read;
}

bool FileSource::SkipToLast(std::size_t bytes) {
  LARGE_INTEGER place;
  place.QuadPart = -static_cast<LONGLONG>(bytes);
  if (SetFilePointerEx(file_.Get(), place, nullptr, FILE_END)) return true;
  return SetFilePointerEx(file_.Get(), {}, nullptr, FILE_BEGIN) != FALSE;
}

bool FileSink::Write(std::string_view bytes) { return WriteBytes(file_, bytes); }

StandardSink::StandardSink(DWORD stream) : stream_(GetStdHandle(stream)) {
  DWORD mode;
  is_console_ = GetConsoleMode(stream_.Get(), &mode) != FALSE;
}

bool StandardSink::Write(std::string_view bytes) {
  return is_console_ ? WriteToConsole(stream_.Get(), window::Wide(bytes))
                     : WriteBytes(stream_, bytes);
}

}  // namespace tolvane::logtool
