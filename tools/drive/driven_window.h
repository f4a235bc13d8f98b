#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tolvane::window {

/// Longest wait for anything that the driven program does. Generous, as machines that run tests may
/// be slow; no wait is as long as this when all goes well.
constexpr std::chrono::seconds kDeadline{60};

/// Asks `condition` again and again until it holds or `limit` has passed; says whether it held.
bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit = kDeadline);

[[nodiscard]] std::wstring ClassOf(HWND window);

/// A visible top-level window of the given class; of any process when `process` is 0.
[[nodiscard]] HWND FindTopWindow(const wchar_t* window_class, DWORD process = 0);
[[nodiscard]] std::vector<HWND> TopWindows(const wchar_t* window_class, DWORD process = 0);

/// A window of the driven program and its controls, found by the ids of resource.h. The window is
/// the program's own; every question is a message with a time limit, so a program that hangs makes
/// a test fail and not hang.
class DrivenWindow {
 public:
  DrivenWindow() = default;
  explicit DrivenWindow(HWND window) : window_(window) {}

  [[nodiscard]] HWND Handle() const { return window_; }
  [[nodiscard]] bool Exists() const { return IsWindow(window_) != FALSE; }

  /// Null when there is no such control.
  [[nodiscard]] HWND Control(int control) const;

  /// The window's own text, or that of a control; empty when it did not answer.
  [[nodiscard]] std::wstring Text() const;
  [[nodiscard]] std::wstring Text(int control) const;

  [[nodiscard]] bool Enabled(int control) const;
  [[nodiscard]] bool Visible(int control) const;
  /// The read-only style of an edit control or rich edit control.
  [[nodiscard]] bool ReadOnly(int control) const;
  [[nodiscard]] bool HasFocus(int control) const;

  /// A check box or option button.
  [[nodiscard]] bool Checked(int control) const;

  /// Lines of a drop-down list, and the selected one, -1 for none.
  [[nodiscard]] std::vector<std::wstring> ListLines(int control) const;
  [[nodiscard]] int SelectedLine(int control) const;

  /// Presses a push button. False when it is absent or disabled, as a user could not press it.
  [[nodiscard]] bool Click(int control) const;
  /// Presses and releases the left button of the mouse in the middle of a control that is no
  /// button.
  void ClickMouse(int control) const;
  /// Presses a key while a control has the focus.
  void PressKey(int control, WPARAM key) const;
  /// Selects a line of a drop-down list, from 0, as a user does: the list tells its window.
  void SelectLine(int control, int line) const;
  /// Chooses a menu item by posting its command.
  void Command(int control) const;
  /// Replaces an edit control's text as typing does.
  void Type(int control, const std::wstring& text) const;
  void Close() const;

  /// Waits until the program has taken in what was posted to it so far, by what is posted behind
  /// it: another selection in an edit control, `edit`, of two characters at least.
  [[nodiscard]] bool AwaitPosted(int edit) const;

 private:
  HWND window_ = nullptr;
};

/// Sends with a time limit; empty when the window did not answer.
[[nodiscard]] std::optional<LRESULT> Send(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
[[nodiscard]] std::wstring TextOf(HWND window);

}  // namespace tolvane::window
