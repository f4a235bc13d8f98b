// tolvane-log on Windows: logs are in the system code page, and paths are UTF-16 outside.
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/utf8.h"
#include "platform/windows/system/code_page.h"
#include "platform/windows/system/text.h"
#include "tools/log/command/command.h"
#include "tools/log/command/unix_seconds.h"
#include "tools/log/windows/file_bytes.h"

// The run-time library hands over the names that *.csv stands for: no shell of Windows does.
extern "C" int _dowildcard;
int _dowildcard = -1;

namespace tolvane::logtool {
namespace {

class Files final : public LogFiles {
 public:
  std::unique_ptr<ByteSource> Open(const std::string& path) override {
    // A log may be read while the program still writes the next one.
    FileHandle file(CreateFileW(WideOf(path).c_str(), GENERIC_READ,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    return file ? std::make_unique<FileSource>(std::move(file)) : nullptr;
  }
  std::unique_ptr<ByteSink> Create(const std::string& path) override {
    FileHandle file(CreateFileW(WideOf(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? std::make_unique<FileSink>(std::move(file)) : nullptr;
  }
  void Remove(const std::string& path) override { DeleteFileW(WideOf(path).c_str()); }
};

std::vector<std::string> Words(int count, wchar_t** words) {
  std::vector<std::string> utf8;
  for (int i = 1; i < count; ++i) {
    utf8.push_back(ToUtf8(platform::windows::FromWide(words[i], std::wcslen(words[i]))));
  }
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
