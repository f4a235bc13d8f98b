#pragma once

#include <string>
#include <vector>

#include "tests/window/window_fixture.h"

namespace tolvane::window {

constexpr const wchar_t* kSettingsDialogClass = L"TolvaneSettingsDialog";
constexpr const wchar_t* kHelpClass = L"TolvaneHelp";
constexpr const wchar_t* kVersionClass = L"TolvaneVersion";

/// What no box of a settings dialog takes: no number, a number outside every limit, or neither.
[[nodiscard]] std::vector<std::wstring> BadNumbers();

/// Waits until the control shows at least `pixels` pixels of the colour: windows are painted when
/// the program has nothing better to do.
[[nodiscard]] bool Shows(const DrivenWindow& dialog, int control, COLORREF colour,
                         std::size_t pixels = 10);

/// For tests that Windows itself would not let pass: it keeps the choice of a browser to its user,
/// and its own dialogs are made of other windows.
[[nodiscard]] bool OnWine();

/// A test with the real program that opens its other windows.
class OpenedWindows : public RealProgram {
 protected:
  /// Starts the program and waits until it is ready.
  void Start();
  /// Ends it and waits for that.
  void End();

  /// Chooses a menu item and waits for the window that it opens.
  DrivenWindow Open(int menu, const wchar_t* window_class = kSettingsDialogClass);
  [[nodiscard]] DrivenWindow Find(const wchar_t* window_class) const;
  /// Waits until the dialog has gone and the main window can be used again.
  [[nodiscard]] bool Closed(const DrivenWindow& dialog) const;
  /// Presses OK and waits for the end of the dialog.
  void PressOk(const DrivenWindow& dialog) const;
  void PressCancel(const DrivenWindow& dialog) const;
  /// Presses a colour button and answers the system's dialog with IDOK or IDCANCEL.
  void AnswerColourDialog(const DrivenWindow& dialog, int control, WPARAM answer) const;
  /// Presses the help picture; the help window.
  DrivenWindow ShowHelp(const DrivenWindow& dialog) const;

  DrivenWindow main_;
};

}  // namespace tolvane::window
