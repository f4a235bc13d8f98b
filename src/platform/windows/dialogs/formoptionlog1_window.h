#pragma once

#include <array>

#include "config/dialogs/formoptionlog1.h"
#include "platform/windows/dialogs/folder_dialog.h"
#include "platform/windows/dialogs/settings_dialog.h"

namespace tolvane::platform::windows {

/// FormOptionLog1 on the screen.
class FormOptionLog1Window final : public SettingsDialogOf<FormOptionLog1> {
 public:
  FormOptionLog1Window(const DialogSurroundings& surroundings, HelpWindow& help,
                       StringResources& resources, ELM327_Info& device, FileServices& files);
  ~FormOptionLog1Window() { Destroy(); }

 private:
  void AddControls() override;
  void Bind(const ControlBinder& bind) override;
  void OnClick(int control) override;

  /// Lets a control take what is dragged onto it from the file manager.
  void MakeDropTarget(HWND tool_tips, int target);
  static LRESULT CALLBACK DropProcedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam,
                                        UINT_PTR target, DWORD_PTR object) noexcept;
  void OnDrop(int target, HDROP dropped);

  FileServices& files_;
  WindowsFolderDialog folder_dialog_;
  std::array<IconHandle, 4> pictures_;
};

}  // namespace tolvane::platform::windows
