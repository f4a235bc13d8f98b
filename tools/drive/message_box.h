#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tolvane::window {

/// What a standing message box shows.
struct ShownMessage {
  HWND box;
  HWND owner;  // null for none
  std::wstring title;
  std::wstring text;  // lines joined as the program joined them
};

/// The message box that a process shows, if it shows one.
[[nodiscard]] std::optional<ShownMessage> FindMessage(DWORD process);

/// Waits for a message box; empty when none came in time.
[[nodiscard]] std::optional<ShownMessage> WaitForMessage(DWORD process);

/// Presses one of a message box's buttons, such as IDOK, and waits until the box has gone.
bool Press(const ShownMessage& message, int button);

}  // namespace tolvane::window
