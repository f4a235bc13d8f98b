#include "tools/log/windows/file_bytes.h"

#include <algorithm>
#include <string>

namespace tolvane::logtool {

namespace {

// No call takes more than this, which the functions count in 32 bits; consoles take less.
constexpr std::size_t kPiece_MAX = std::size_t{1} << 20;
constexpr std::size_t kConsolePiece_MAX = 8192;

bool WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto piece = static_cast<DWORD>(std::min(bytes.size(), kPiece_MAX));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), piece, &written, nullptr) || written == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
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

bool FileSink::Write(std::string_view bytes) { return WriteAll(file_.Get(), bytes); }

StandardSink::StandardSink(DWORD stream) : stream_(GetStdHandle(stream)) {
  DWORD mode;
  is_console_ = GetConsoleMode(stream_, &mode) != FALSE;
}

bool StandardSink::Write(std::string_view bytes) {
  return is_console_ ? WriteToConsole(stream_, WideOf(bytes)) : WriteAll(stream_, bytes);
}

std::wstring WideOf(std::string_view utf8) {
  const int length = static_cast<int>(utf8.size());
  std::wstring text(utf8.size(), L'\0');  // never more units than bytes
  const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, text.data(), length);
  text.resize(static_cast<std::size_t>(units));
  return text;
}

}  // namespace tolvane::logtool
