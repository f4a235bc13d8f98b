#include "shell/discovery/dll_presence_check.h"

#include "run/adapter_kind.h"
#include "run/stop_message.h"

namespace tolvane::Common_Function {

namespace {

/// A folder given as the path of the executable is taken for the folder that holds it. Its
/// separator stays, and Windows takes two for one.
String WithoutExecutable(String folder) {
  constexpr StringView kExecutable = u"Tolvane.exe";
  for (std::size_t at; (at = folder.find(kExecutable)) != String::npos;) {
    folder.erase(at, kExecutable.size());
  }
  return folder;
}

bool HasSupportLibrary(const platform::Platform& platform, const ELM327_Info& device) {
  String file = WithoutExecutable(device.ExecutableFolder());
  file += platform::SupportLibrary::kFileInFolder;
  return platform.files.FileExists(file) && platform.qxt100.Load();
}

}  // namespace

std::int32_t DLL_Presence_Check(const platform::Platform& platform, const ELM327_Info& device) {
  if (!HasSupportLibrary(platform, device)) {
    ShowStopMessage(platform.message_box, device,
                    u"qxt100.dll が見つかりません。\r\n"
                    u"qxt100.dll は同梱のものを使用してください。",
                    kEndsApp);
    return -1;
  }

  const String system_folder = platform.folders.System() + u"\\";
  std::int32_t present = 0;
  for (const AdapterTraits& adapter : adapter_traits) {
    const bool found = platform.files.FileExists(system_folder + String(adapter.library));
    if (found) present |= adapter.library_bit;
  }
  if (present == 0) {
    // All are missing and one is named, always this one: users know the message so.
    const StringView named = AdapterTraitsOf(AdapterKind::kCanusb).library;
    ShowStopMessage(platform.message_box, device,
                    u"CANインタフェース用DLLが見つかりません。\r\n" + system_folder +
                        String(named) + u"\r\nドライバがインストールされていません。",
                    kEndsApp);
    return -1;
  }
  return present;
}

}  // namespace tolvane::Common_Function
