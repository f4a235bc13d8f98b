#pragma once

#include <span>

#include "platform/help_window.h"
#include "platform/windows/dialogs/colour_dialog.h"
#include "platform/windows/dialogs/control_binder.h"
#include "platform/windows/dialogs/dialog_part.h"
#include "platform/windows/dialogs/dialog_surroundings.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/window_parts/base_window.h"
#include "run/elm327_info.h"

namespace tolvane::platform::windows {

/// What the three settings dialogs share: made and filled at each opening, the main window disabled
/// while they are up, OK, cancel, help, the colours, the keyboard, the fixed size.
class SettingsDialog : public BaseWindow<SettingsDialog> {
 public:
  static constexpr const wchar_t* kClassName = L"TolvaneSettingsDialog";
  static void AdjustClass(WNDCLASSEXW& window_class);

  /// Without effect while it is open.
  void Show();
  /// Closes without writing; without effect on a dialog that is not open.
  void Unload();

  LRESULT HandleMessage(UINT message, WPARAM wparam, LPARAM lparam);

 protected:
  SettingsDialog(const DialogSurroundings& surroundings, HelpWindow& help,
                 StringResources& resources, SIZE client, int help_text)
      : surroundings_(surroundings),
        help_(help),
        resources_(resources),
        client_(client),
        help_text_(help_text) {}
  ~SettingsDialog() { Destroy(); }

  /// Forgets what an earlier opening left and reads the settings; gives the caption.
  virtual const String& LoadForm() = 0;
  /// Pairs every control's value with its number.
  virtual void Bind(const ControlBinder& bind) = 0;
  virtual void AddControls() = 0;
  /// A click on a control that is neither OK, cancel nor help, its value taken before and shown
  /// after it.
  virtual void OnClick(int control) = 0;
  /// OK, all values taken.
  virtual void StoreForm() = 0;

  void Add(std::span<const DialogPart> parts) { AddParts(Hwnd(), dpi_, font_.Get(), parts); }
  void AddLines(std::span<const DialogPart> line, int count, int step) {
    AddRows(Hwnd(), dpi_, font_.Get(), line, count, step);
  }
  /// OK, cancel and the help picture in the lower right corner.
  void AddClosingButtons();
  [[nodiscard]] HWND Child(int control) const { return GetDlgItem(Hwnd(), control); }
  [[nodiscard]] const Dpi& Scale() const { return dpi_; }
  [[nodiscard]] ColourDialog& CommonDialog1() { return colour_dialog_; }

  void ShowValues() { Bind(ControlBinder(Hwnd(), ControlBinder::Way::kShow)); }
  void TakeValues() { Bind(ControlBinder(Hwnd(), ControlBinder::Way::kTake)); }
  /// Runs `event` on the logic's side of the gate, unless this opening of the dialog has gone
  /// meanwhile or stands behind a modal one: then it came from another program.
  void Deliver(EventGate::Event event);

 private:
  void OnCommand(int control);
  void OnActivate(bool active);
  void FocusFirst();
  void Help();

  const DialogSurroundings& surroundings_;
  HelpWindow& help_;
  StringResources& resources_;
  SIZE client_;    // units of 96 dpi
  int help_text_;  // its number among the resources
  Dpi dpi_;
  FontHandle font_;
  IconHandle help_picture_;
  WindowsColourDialog colour_dialog_{surroundings_.gate};
  HWND last_focus_ = nullptr;
};

/// A settings dialog around the values of `Form`.
template <typename Form>
class SettingsDialogOf : public SettingsDialog {
 protected:
  SettingsDialogOf(const DialogSurroundings& surroundings, HelpWindow& help,
                   StringResources& resources, ELM327_Info& device, SIZE client, int help_text)
      : SettingsDialog(surroundings, help, resources, client, help_text), device_(device) {}

  const String& LoadForm() final {
    form_ = Form();
    form_.read_setting(device_);
    return form_.Caption;
  }
  void StoreForm() final { form_.Bt_OK_Click(device_); }

  ELM327_Info& device_;
  Form form_;
};

}  // namespace tolvane::platform::windows
