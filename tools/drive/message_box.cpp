#include "tools/drive/message_box.h"

#include <array>

#include "tools/drive/driven_window.h"

namespace tolvane::window {
namespace {

// The control that holds a message box's text, on Windows and on Wine.
constexpr std::array<int, 2> kTextIds{0xFFFF, 100};

HWND TextControl(HWND box) {
  for (const int control : kTextIds) {
    for (HWND child = nullptr;
         (child = FindWindowExW(box, child, L"Static", nullptr)) != nullptr;) {
      const bool is_icon = (GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
      if ((GetDlgCtrlID(child) & 0xFFFF) == control && !is_icon) return child;
    }
  }
  return nullptr;
}

}  // namespace

std::optional<ShownMessage> FindMessage(DWORD process) {
  for (const HWND box : TopWindows(L"#32770", process)) {
    const HWND text = TextControl(box);
    if (text != nullptr) {
      return ShownMessage{box, GetWindow(box, GW_OWNER), TextOf(box), TextOf(text)};
    }
  }
  return std::nullopt;
}

std::optional<ShownMessage> WaitForMessage(DWORD process) {
  std::optional<ShownMessage> found;
  WaitUntil([&] {
    found = FindMessage(process);
    return found.has_value();
  });
  return found;
}

bool Press(const ShownMessage& message, int button) {
  PostMessageW(message.box, WM_COMMAND, static_cast<WPARAM>(button), 0);
  return WaitUntil([&] { return !IsWindow(message.box); });
}

}  // namespace tolvane::window
