#pragma once

#include "config/dialogs/formoption1.h"
#include "platform/windows/dialogs/settings_dialog.h"

namespace tolvane::platform::windows {

/// FormOption1 on the screen.
class FormOption1Window final : public SettingsDialogOf<FormOption1> {
 public:
  FormOption1Window(const DialogSurroundings& surroundings, HelpWindow& help,
                    StringResources& resources, ELM327_Info& device);

 private:
  void AddControls() override;
  void Bind(const ControlBinder& bind) override;
  void OnClick(int control) override;
};

}  // namespace tolvane::platform::windows
