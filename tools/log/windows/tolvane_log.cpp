// tolvane-log on Windows: logs are in the system code page, and paths are UTF-16 outside.
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/system/code_page.h"
#include "tools/drive/text.h"
#include "tools/log/command/command.h"
#include "tools/log/command/unix_seconds.h"
#include "tools/log/windows/file_streams.h"

// The run-time library hands over the names that *.csv stands for: no shell of Windows does.
extern "C" int _dowildcard;
int _dowildcard = -1;

namespace tolvane::logtool {
namespace {

/// With the system's reason for the last call that failed, in its language.
std::string Why(const std::string& what) {
  wchar_t text[256];
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, GetLastError(), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  return what + ": " + window::Utf8({text, length});
}

std::optional<FileIdentity> IdentityOf(const FileHandle& file) {
  BY_HANDLE_FILE_INFORMATION what;
  if (!GetFileInformationByHandle(file.Get(), &what)) return {};
  const std::uint64_t number = std::uint64_t{what.nFileIndexHigh} << 32 | what.nFileIndexLow;
  if (number == 0) return {};  // its file system has none
  return FileIdentity{.disk = what.dwVolumeSerialNumber, .number = number};
}

class Files final : public LogFiles {
 public:
  Opened<ByteSource> Open(const std::string& path) override {
    const DWORD attributes = GetFileAttributesW(window::Wide(path).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      return {nullptr, kIsFolder};
    }
    // A log may be read while the program still writes the next one.
    FileHandle file(CreateFileW(window::Wide(path).c_str(), GENERIC_READ,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file) return {nullptr, Why("this file cannot be opened")};
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) return {nullptr, kIsNoFile};
    const auto identity = IdentityOf(file);
    return {std::make_unique<FileSource>(std::move(file)), {}, identity};
  }
  Opened<ByteSink> Create(const std::string& path) override {
    FileHandle file(CreateFileW(window::Wide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file) return {std::make_unique<FileSink>(std::move(file))};
    return {nullptr,
            GetLastError() == ERROR_FILE_EXISTS ? kIsThere : Why("this file cannot be made")};
  }
  void Remove(const std::string& path) override { DeleteFileW(window::Wide(path).c_str()); }
};

std::vector<std::string> Words(int count, wchar_t** words) {
  std::vector<std::string> utf8;
  for (int i = 1; i < count; ++i) utf8.push_back(window::Utf8(words[i]));
  return utf8;
}

}  // namespace
}  // namespace tolvane::logtool

int wmain(int count, wchar_t** words) {
  using namespace tolvane::logtool;
  Files files;
  StandardSink output(STD_OUTPUT_HANDLE);
  StandardSink messages(STD_ERROR_HANDLE);
  tolvane::platform::windows::WindowsCodePage code_page;
  return RunCommand(Words(count, words), {.files = files,
                                          .output = output,
                                          .messages = messages,
                                          .code_page = code_page,
                                          .unix_seconds = UnixSeconds});
}
