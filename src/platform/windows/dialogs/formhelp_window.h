#pragma once

#include "platform/help_window.h"
#include "platform/windows/dialogs/dialog_surroundings.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/window_parts/base_window.h"
#include "platform/windows/window_parts/dpi.h"
#include "run/elm327_info.h"

namespace tolvane::platform::windows {

/// FormHelp on the screen: over all windows, in the top left corner when it is loaded.
class FormHelpWindow final : public BaseWindow<FormHelpWindow>, public HelpWindow {
 public:
  static constexpr const wchar_t* kClassName = L"TolvaneHelp";
  static void AdjustClass(WNDCLASSEXW& window_class);

  FormHelpWindow(const DialogSurroundings& surroundings, const ELM327_Info& device)
      : surroundings_(surroundings), device_(device) {}
  ~FormHelpWindow() { Destroy(); }

  void Show() override;
  void Hide() override { ShowWindow(Hwnd(), SW_HIDE); }
  [[nodiscard]] bool Visible() const override { return IsWindowVisible(Hwnd()) != FALSE; }
  void TB_View(StringView text) override;
  void Unload();

  LRESULT HandleMessage(UINT message, WPARAM wparam, LPARAM lparam);

 private:
  void Form_Load();
  void LayOut(int width, int height);

  const DialogSurroundings& surroundings_;
  const ELM327_Info& device_;
  Dpi dpi_;
  FontHandle font_;
};

}  // namespace tolvane::platform::windows
