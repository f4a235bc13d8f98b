#include "platform/windows/window_parts/tool_tips.h"

namespace tolvane::platform::windows {
namespace {

constexpr int kTipWidth = 420;  // units of 96 dpi; longer texts are broken

}  // namespace

HWND CreateToolTips(HWND owner, const Dpi& dpi) {
  const HWND tool_tips =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"", WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0,
                      owner, nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(tool_tips, TTM_SETMAXTIPWIDTH, 0, dpi.Pixels(kTipWidth));
  return tool_tips;
}

void AddToolTip(HWND tool_tips, HWND owner, HWND child, const wchar_t* text) {
  TTTOOLINFOW info{};
  info.cbSize = sizeof(info);
  info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  info.hwnd = owner;
  info.uId = reinterpret_cast<UINT_PTR>(child);
  // Copied by the control.
  info.lpszText = const_cast<wchar_t*>(text);
  SendMessageW(tool_tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

}  // namespace tolvane::platform::windows
