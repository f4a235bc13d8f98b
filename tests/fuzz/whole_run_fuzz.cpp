// The whole program on a machine in memory: any settings file and any page of an earlier session,
// then frames, clicks, ticks, settings and faults in any order, also in the yields of runs, of
// ticks and of flushes. Judged are the end of each run, its logs and the page against its frames,
// and the page with its rich text; see HostileMachine.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "config/filesavesystem.h"
#include "tests/fuzz/fuzz_entry.h"
#include "tests/fuzz/hostile_machine.h"
#include "tests/fuzz/hostile_user.h"
#include "tests/fuzz/input.h"

namespace {

using namespace tolvane;
using namespace tolvane::fuzz;

/// The settings file of a program that was never set.
const std::string& DefaultSettings() {
  static const std::string settings = [] {
    platform::memory::CodePage932 code_page;
    platform::memory::FileSystem files(code_page);
    files.AddFolder(u"C:\\Tolvane");
    ELM327_Info device(u"C:\\Tolvane");
    device.Param_ALL_Clear();
    device.t_LogSaveFormat = kLogFormatCsv;
    Require(FileSaveSystem::SaveConfigFile(device, files, code_page) ==
            FileSaveSystem::kConfigSaved);
    return files.Bytes(u"C:\\Tolvane\\config.dat").value_or("");
  }();
  return settings;
}

/// The default ones with some bytes changed, or, behind a 255, as many bytes as told.
std::string Settings(Input& input) {
  std::uint8_t left = input.Byte();
  if (left == 255) return input.Bytes(static_cast<std::size_t>(input.Short()));
  std::string settings = DefaultSettings();
  for (; left > 0 && !input.AtEnd(); --left) {
    const auto place = static_cast<std::size_t>(input.Short());
    settings[place % settings.size()] = static_cast<char>(input.Byte());
  }
  return settings;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongest = 8192;
  if (size > kLongest) return 0;
  // Kept open, since opening the C library's converters takes longer than most runs.
  static platform::memory::CodePage932 converters;
  Input input(data, size);
  const std::uint8_t version = input.Byte();
  const std::string settings = Settings(input);
  // A page of an earlier session; of no version are all from 20 on.
  std::optional<std::string> view_list;
  if (version >= 200 && version < 255) {
    view_list = input.Bytes(static_cast<std::size_t>(input.Short()));
  }
  HostileMachine machine(settings, view_list,
                         version < 20 ? std::optional<std::int32_t>(version) : std::nullopt);
  machine.Start();
  HostileUser(machine, input).Play();
  machine.JudgePage();
  return 0;
}
