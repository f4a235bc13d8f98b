// LoadConfigFile on any bytes: it must return one of its results, and the settings that it loaded
// must be the same after saving and loading again.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/filesavesystem.h"
#include "platform/memory/dialogs/message_box.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/file_system.h"
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

struct Machine {
  explicit Machine(std::string_view config) { files.AddFile(kPath, config); }

  std::int32_t Load(bool answer) {
    platform::memory::Journal journal;
    platform::EventGate gate;
    platform::memory::MessageBox message_box(journal, gate);
    message_box.Answer(answer);
    device.Param_ALL_Clear();
    return FileSaveSystem::LoadConfigFile(device, files, code_page, message_box);
  }

  std::string Saved() {
    files.Remove(kPath);
    Require(FileSaveSystem::SaveConfigFile(device, files, code_page) ==
            FileSaveSystem::kConfigSaved);
    return files.Bytes(kPath).value_or("");
  }

  platform::CodePage& code_page = SharedCodePage();
  platform::memory::FileSystem files{code_page};
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
