// LoadConfigFile on any bytes: it must return one of its results, and the settings that it loaded
// must be the same after saving and loading again.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/filesavesystem.h"
#include "platform/memory/dialogs/message_box.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/journal.h"
#include "tests/fuzz/fuzz_entry.h"
#include "tests/fuzz/input.h"

namespace {

using namespace tolvane;
using fuzz::Require;

constexpr StringView kPath = u"C:\\Tolvane\\config.dat";

/// Opening the C library's converters takes longer than an input.
platform::memory::CodePage932& SharedCodePage() {
  static platform::memory::CodePage932 code_page;
  return code_page;
}

/// A disk that holds config.dat and nothing else. The one of the memory platform would take most of
/// the time with names of folders, which are no input here.
class OneFile final : public platform::FileServices {
 public:
  std::optional<std::string> bytes;

  bool FolderExists(StringView) override { return true; }
  bool FileExists(StringView path) override { return path == kPath && bytes; }
  bool DeleteFile(StringView path, bool) override {
    const bool deleted = FileExists(path);
    if (deleted) bytes.reset();
    return deleted;
  }
  std::optional<platform::BinaryRead> ReadBinary(StringView path, std::size_t size) override {
    if (!FileExists(path)) return {};
    const auto whole = std::as_bytes(std::span(*bytes));
    const auto read = whole.first(std::min(size, whole.size()));
    return platform::BinaryRead{.bytes = {read.begin(), read.end()}, .closed = true};
  }
  bool WriteBinary(StringView path, std::span<const std::byte> written) override {
    Require(path == kPath);
    const std::string tail =
        bytes && bytes->size() > written.size() ? bytes->substr(written.size()) : "";
    bytes.emplace(reinterpret_cast<const char*>(written.data()), written.size());
    *bytes += tail;
    return true;
  }

  // Settings need none of these.
  std::vector<String> FileNames(StringView) override { return {}; }
  bool CreateFolder(StringView) override { return false; }
  std::unique_ptr<platform::TextStream> CreateTextFile(StringView, bool, bool) override {
    return nullptr;
  }
  std::optional<std::int32_t> Attributes(StringView) override { return {}; }
};

struct Machine {
  explicit Machine(std::string_view config) { files.bytes = config; }

  std::int32_t Load(bool answer) {
    platform::memory::Journal journal;
    platform::EventGate gate;
    platform::memory::MessageBox message_box(journal, gate);
    message_box.Answer(answer);
    device.Param_ALL_Clear();
    return FileSaveSystem::LoadConfigFile(device, files, code_page, message_box);
  }

  std::string Saved() {
    files.bytes.reset();
    Require(FileSaveSystem::SaveConfigFile(device, files, code_page) ==
            FileSaveSystem::kConfigSaved);
    return files.bytes.value_or("");
  }

  platform::CodePage& code_page = SharedCodePage();
  OneFile files;
  ELM327_Info device{u"C:\\Tolvane"};
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string config(data, data + size);
  Machine machine(config);
  const std::int32_t result = machine.Load(size % 2 == 0);
  const bool loaded = result == FileSaveSystem::kConfigLoaded;
  Require(loaded || result == FileSaveSystem::kConfigRefused);
  Require(machine.files.FileExists(kPath) == loaded);

  const std::string saved = machine.Saved();
  Machine again(saved);
  Require(again.Load(false) == FileSaveSystem::kConfigLoaded);
  Require(again.Saved() == saved);
  return 0;
}
