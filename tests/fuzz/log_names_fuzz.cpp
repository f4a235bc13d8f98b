// Names of folders and files out of any comment and any folder setting: a run's log and a snapshot
// are new files where the settings lead, and nothing that was there is changed.
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "logging/excel_outputdb.h"
#include "logging/ime_function.h"
#include "platform/memory/memory_platform.h"
#include "tests/fuzz/fuzz_entry.h"
#include "tests/fuzz/input.h"

namespace {

using namespace tolvane;
using namespace tolvane::fuzz;
using platform::memory::MemoryPlatform;

const String kFolder = u"C:\\Tolvane";

class Names {
 public:
  explicit Names(Input& input) {
    machine_.files.AddFolder(kFolder);
    machine_.files.AddFolder(machine_.folders.Desktop());
    device_.Param_ALL_Clear();
    device_.t_LogSaveFormat = kLogFormatCsv;
    device_.t_LogSaveFilePath_mode = device_.t_SaveFilePath_mode = input.Byte() % 4;
    device_.t_LogSave_subFolder = input.Byte() % 2;
    device_.t_SaveFormat = input.Byte() % 3;
    device_.t_LogComment = input.Text().substr(0, 50);
    for (int folders = input.Byte() % 4; folders > 0; --folders) {
      const String folder = kFolder + u'\\' + input.Text();
      if (machine_.files.CreateFolder(folder)) device_.t_LogSaveFilePath = folder;
    }
    if (input.Byte() % 2 != 0) device_.t_LogSaveFilePath = input.Text();
    device_.t_SaveFilePath = device_.t_LogSaveFilePath;
    for (int taken = input.Byte() % 8; taken > 0; --taken) {
      machine_.files.AddFile(
          kFolder + u"\\KL26010509-00" + String(1, static_cast<char16_t>(u'0' + taken)) + u".csv",
          "taken");
    }
  }

  void Judge() {
    // Each as a run of its own: the second one finds what the first one left.
    for (int run = 0; run < 2; ++run) JudgeLog();
    JudgeSnapshot();
  }

 private:
  using Disk = std::map<String, std::string>;
  Disk OnDisk() const {
    Disk disk;
    for (const String& path : machine_.files.Files(u"C:")) {
      disk[path] = machine_.files.Bytes(path).value_or("");
    }
    return disk;
  }

  /// The one file that came, if any; all others are what they were.
  std::optional<String> Newcomer(const Disk& before) const {
    std::optional<String> newcomer;
    for (const auto& [path, bytes] : OnDisk()) {
      const auto old = before.find(path);
      if (old == before.end()) {
        Require(!newcomer);
        newcomer = path;
      } else {
        Require(old->second == bytes);
      }
    }
    return newcomer;
  }

  void JudgeLog() {
    const Disk before = OnDisk();
    String FolderName;
    if (device_.t_LogSave_subFolder == 1 && !log_.Get_SubFolder_Name(device_, FolderName)) {
      Require(FolderName.empty());
      return;
    }
    Require(FolderName.find_first_of(u"\\/:*?\"<>|\r\n\t") == String::npos);
    log_.csv_DB_Initialize(0, device_);
    String FileName_Date;
    String FileName_No;
    log_.Excel_DataOutput(1, device_, nullptr, FileName_Date, FileName_No, FolderName);
    const auto written = Newcomer(before);
    Require(FileName_Date == u"26010509" && FileName_No.size() == 3);
    if (!written) return;
    Require(written->ends_with(u"\\KL26010509-" + FileName_No + u".csv"));
    Require(written->size() <= platform::kPath_MAX);
    // A run that has made itself a subfolder beneath the base logs in there.
    const bool is_found =
        machine_.files.FolderExists(device_.t_LogSaveFilePath + u'\\' + FolderName);
    if (device_.t_LogSaveFilePath_mode == 2 && !FolderName.empty() && is_found) {
      Require(written->find(FolderName) != String::npos);
    }
  }

  void JudgeSnapshot() {
    const Disk before = OnDisk();
    machine_.RTB_MainView.Text(u"page");
    IME_Function::SaveSnapshotFile(device_, outside_, machine_.RTB_MainView);
    const auto written = Newcomer(before);
    const String& said = machine_.message_box.Boxes().back().text;
    const bool is_asked = device_.t_SaveFormat != 0;
    Require(written.has_value() == (is_asked && said == u"保存しました"));
  }

  MemoryPlatform machine_;
  platform::Platform outside_ = machine_.Platform();
  ELM327_Info device_{kFolder};
  Excel_OutputDB log_{{.events = machine_.events,
                       .files = machine_.files,
                       .folders = machine_.folders,
                       .wall_clock = machine_.wall_clock}};
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Kept open, since opening the C library's converters takes longer than an input.
  static platform::memory::CodePage932 converters;
  Input input(data, size);
  Names(input).Judge();
  return 0;
}
