// tolvane-log on Linux: logs are in code page 932, and paths are whatever bytes the shell gives.
#include <cstdio>
#include <string>
#include <vector>

#include "platform/memory/system/code_page_932.h"
#include "tools/log/command/command.h"
#include "tools/log/command/unix_seconds.h"
#include "tools/log/linux/file_bytes.h"

namespace tolvane::logtool {
namespace {

class Files final : public LogFiles {
 public:
  std::unique_ptr<ByteSource> Open(const std::string& path) override {
    File file(std::fopen(path.c_str(), "rb"));
    return file != nullptr ? std::make_unique<FileSource>(std::move(file)) : nullptr;
  }
  std::unique_ptr<ByteSink> Create(const std::string& path) override {
    File file(std::fopen(path.c_str(), "wbx"));
    return file != nullptr ? std::make_unique<FileSink>(std::move(file)) : nullptr;
  }
  void Remove(const std::string& path) override { static_cast<void>(std::remove(path.c_str())); }
};

}  // namespace
}  // namespace tolvane::logtool

int main(int count, char** words) {
  using namespace tolvane::logtool;
  Files files;
  StandardSink output(stdout);
  StandardSink messages(stderr);
  tolvane::platform::memory::CodePage932 code_page;
  return RunCommand({words + 1, words + count}, {.files = files,
                                                 .output = output,
                                                 .messages = messages,
                                                 .code_page = code_page,
                                                 .unix_seconds = UnixSeconds});
}
