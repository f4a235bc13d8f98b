#pragma once

#include <map>

#include "platform/main_window.h"
#include "platform/windows/main_window/controls.h"
#include "platform/windows/main_window/form1_events.h"
#include "platform/windows/main_window/splash_window.h"
#include "platform/windows/main_window/timer.h"
#include "platform/windows/rich_text/rich_edit_view.h"
#include "platform/windows/system/event_loop.h"
#include "platform/windows/window_parts/base_window.h"
#include "platform/windows/window_parts/dpi.h"

namespace tolvane::platform::windows {

/// Form1 on the screen: the window, its controls and its menus. Clicks and commands go through the
/// gate to the events; before Listen nothing happens.
class Form1Window final : public BaseWindow<Form1Window>,
                          public platform::Window,
                          public PopupMenu,
                          public OtherForms {
 public:
  static constexpr const wchar_t* kClassName = L"TolvaneMainWindow";
  static void AdjustClass(WNDCLASSEXW& window_class);

  struct WorkerWindows {
    /// `interval` of their timers, in ms.
    WorkerWindows(EventGate& gate, HINSTANCE instance, std::int32_t interval)
        : FormBG(gate, instance, interval),
          FormBG2(gate, instance, interval),
          FormBG_29(gate, instance, interval),
          FormBG2_29(gate, instance, interval) {}

    [[nodiscard]] bool Made() const {
      return FormBG.Hwnd() != nullptr && FormBG2.Hwnd() != nullptr && FormBG_29.Hwnd() != nullptr &&
             FormBG2_29.Hwnd() != nullptr;
    }

    WorkerWindow FormBG;
    WorkerWindow FormBG2;
    WorkerWindow FormBG_29;
    WorkerWindow FormBG2_29;
  };

  Form1Window(HINSTANCE instance, EventGate& gate, WindowsEventLoop& loop, CodePage& code_page,
              SplashWindow& splash, WorkerWindows& workers);

  ~Form1Window() override;

  /// Makes the hidden window with all its controls. False when the system refuses one, or refused
  /// the splash or a worker's window before.
  [[nodiscard]] bool CreateHidden();
  void Listen(Form1Events* events) { events_ = events; }
  /// Who unloads the windows that the menus open.
  void Attach(OtherForms* dialogs) { dialogs_ = dialogs; }
  /// What the logic works on, once the window is made.
  [[nodiscard]] MainWindow Face();
  /// Shows the window as the process was asked to, and does what came too early for it.
  void Start(int show_command);

  // platform::Window
  void Caption(StringView text) override;
  void Unload() override;
  // PopupMenu
  void PopUp() override;
  // OtherForms
  void Unload(OtherForm form) override;

  LRESULT HandleMessage(UINT message, WPARAM wparam, LPARAM lparam);

 private:
  [[nodiscard]] bool CreateControls();
  void TakeFirstPlace();
  void AttachControls();
  [[nodiscard]] bool AddToolTips();
  [[nodiscard]] HWND Child(int control) const { return GetDlgItem(Hwnd(), control); }
  /// `command` as it stands in a menu.
  [[nodiscard]] MenuItem& Item(HMENU menu, int command);
  [[nodiscard]] MenuItem& BarItem(int command) { return Item(GetMenu(Hwnd()), command); }
  [[nodiscard]] MenuItem& ViewItem(int command) { return Item(view_menu_.Get(), command); }

  void OnCommand(int command, int notification);
  void OnMenuOrClick(int command);
  void StartRun();
  /// True when the key is one of the window's own.
  [[nodiscard]] bool OnKey(WPARAM key);
  [[nodiscard]] LRESULT DefaultButton() const;
  void DeliverCommand(int command);
  void DeliverSelectionChange();
  void DeliverContextMenu(bool by_keyboard);
  [[nodiscard]] bool CanBeChosen(int command) const;
  [[nodiscard]] bool MenuItemEnabled(int command) const;
  void OnClose();
  void OnSessionEnd();
  void OnSize(int width, int height);
  void OnActivate(bool active);
  [[nodiscard]] POINT PopUpPlace() const;

  HINSTANCE instance_;
  EventGate& gate_;
  WindowsEventLoop& loop_;
  SplashWindow& splash_;
  WorkerWindows& workers_;
  Form1Events* events_ = nullptr;
  OtherForms* dialogs_ = nullptr;

  Dpi dpi_;
  FontHandle font_;
  IconHandle caution_;
  MenuHandle view_menu_;  // the pop-up; the bar belongs to the window
  HWND last_focus_ = nullptr;

  WindowsButton connect_;
  WindowsButton disconnect_;
  WindowsComboBox device_;
  WindowsTextBox hard_version_;
  WindowsTextBox protocol_;
  WindowsTextBox status_;
  WindowsTextBox comment_;
  WindowsPicture caution_picture_;
  RichEditView view_;
  std::map<int, WindowsMenuItem> menu_items_;  // by their commands

  bool selection_waiting_ = false;
  bool start_wanted_ = false;   // Bt_Connect was pressed, and its message is on the way
  bool by_keyboard_ = false;    // how the pop-up was asked for
  bool started_ = false;        // Form_Load has returned
  bool close_wanted_ = false;   // WM_CLOSE or WM_QUIT came before that
  bool session_ended_ = false;  // during a run or while closing
  bool unloading_ = false;
};

}  // namespace tolvane::platform::windows
