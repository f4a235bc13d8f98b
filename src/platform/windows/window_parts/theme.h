#pragma once

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// Loads the library of the visual styles. The program does so first of all: parts of the system
/// ask for it by its bare name and are then given this one, not a file beside the executable.
void LoadVisualStyles();

/// How the visual style in force draws a class of controls, such as "BUTTON". There is none in
/// classic style and without the library.
class Theme {
 public:
  Theme(HWND window, const wchar_t* control_class);
  Theme(const Theme&) = delete;
  Theme& operator=(const Theme&) = delete;
  ~Theme();

  explicit operator bool() const { return theme_ != nullptr; }
  // Of a theme that there is.
  void Draw(HDC context, int part, int state, const RECT& bounds) const;
  [[nodiscard]] SIZE Size(HDC context, int part, int state) const;

 private:
  HTHEME theme_ = nullptr;
};

}  // namespace tolvane::platform::windows
