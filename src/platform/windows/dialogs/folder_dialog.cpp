#include "platform/windows/dialogs/folder_dialog.h"

#include <objbase.h>
#include <shobjidl.h>

#include "platform/windows/system/handle.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

ComHandle<IShellItem> FolderItem(const String& path) {
  void* item = nullptr;
  if (FAILED(SHCreateItemFromParsingName(Wide(path), nullptr, IID_IShellItem, &item))) return {};
  return ComHandle<IShellItem>(static_cast<IShellItem*>(item));
}

std::optional<String> PathOf(IFileOpenDialog& dialog) {
  IShellItem* chosen = nullptr;
  if (FAILED(dialog.GetResult(&chosen))) return std::nullopt;
  const ComHandle<IShellItem> item(chosen);
  wchar_t* text = nullptr;
  if (FAILED(item.Get()->GetDisplayName(SIGDN_FILESYSPATH, &text))) return std::nullopt;
  String path(FromWide(text, static_cast<std::size_t>(lstrlenW(text))));
  CoTaskMemFree(text);
  return path;
}

}  // namespace

std::optional<String> WindowsFolderDialog::ShowFolder(StringView start) {
  void* made = nullptr;
  if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IFileOpenDialog, &made))) {
    return std::nullopt;
  }
  const ComHandle<IFileOpenDialog> dialog(static_cast<IFileOpenDialog*>(made));
  FILEOPENDIALOGOPTIONS options = 0;
  dialog.Get()->GetOptions(&options);
  dialog.Get()->SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM);
  if (const auto folder = FolderItem(String(start))) dialog.Get()->SetFolder(folder.Get());
  const HWND owner = owner_;
  const EventGate::Opened opened(gate_);
  if (FAILED(dialog.Get()->Show(owner)) || !IsWindow(owner)) return std::nullopt;
  return PathOf(*dialog.Get());
}

}  // namespace tolvane::platform::windows
