// tolvane-log on Linux: logs are in code page 932, and paths are whatever bytes the shell gives.
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>
#include <vector>

#include "platform/memory/system/code_page_932.h"
#include "tools/log/command/command.h"
#include "tools/log/command/unix_seconds.h"
#include "tools/log/linux/file_streams.h"

namespace tolvane::logtool {
namespace {

/// With the reason of the last call that failed.
std::string Why(const std::string& what) {
  return what + ": " + std::generic_category().message(errno);
}

class Files final : public LogFiles {
 public:
  Opened<ByteSource> Open(const std::string& path) override {
    // A pipe is not opened at all, as that may wait for who writes into it.
    struct stat what {};
    if (stat(path.c_str(), &what) != 0) return {nullptr, Why("this file cannot be opened")};
    if (S_ISDIR(what.st_mode)) return {nullptr, kIsFolder};
    if (!S_ISREG(what.st_mode)) return {nullptr, kIsNoFile};
    File file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr) return {nullptr, Why("this file cannot be opened")};
    return {std::make_unique<FileSource>(std::move(file)),
            {},
            FileIdentity{.disk = what.st_dev, .number = what.st_ino}};
  }
  Opened<ByteSink> Create(const std::string& path) override {
    File file(std::fopen(path.c_str(), "wbx"));
    if (file != nullptr) return {std::make_unique<FileSink>(std::move(file))};
    return {nullptr, errno == EEXIST ? kIsThere : Why("this file cannot be made")};
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
