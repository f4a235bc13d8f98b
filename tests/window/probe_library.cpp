// The part of the probe that lives in the driven program.
#include <cstring>

#include "tests/window/probe.h"
// After windows.h, which it needs.
#include <shlobj.h>

namespace tolvane::window {
namespace {

constexpr UINT kAbsent = static_cast<UINT>(-1);

/// The pop-up menu that this thread shows, null for none.
HMENU ShownPopUp() {
  HWND shown = nullptr;
  while ((shown = FindWindowExW(nullptr, shown, L"#32768", nullptr)) != nullptr) {
    if (GetWindowThreadProcessId(shown, nullptr) == GetCurrentThreadId()) {
      return reinterpret_cast<HMENU>(SendMessageW(shown, MN_GETHMENU, 0, 0));
    }
  }
  return nullptr;
}

WPARAM ItemState(HWND window, UINT item) {
  UINT state = GetMenuState(GetMenu(window), item, MF_BYCOMMAND);
  if (state == kAbsent) state = GetMenuState(ShownPopUp(), item, MF_BYCOMMAND);
  if (state == kAbsent) return kProbeNoItem;
  return (state & (MF_GRAYED | MF_DISABLED)) != 0 ? kProbeNo : kProbeYes;
}

/// As when the mouse moves over a part of the window: whether the cursor becomes the hand.
WPARAM HandOver(HWND window, int control) {
  const HWND part = GetDlgItem(window, control);
  if (part == nullptr) return kProbeNoItem;
  SetCursor(nullptr);
  SendMessageW(part, WM_SETCURSOR, reinterpret_cast<WPARAM>(part),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  return GetCursor() == LoadCursorW(nullptr, IDC_HAND) ? kProbeYes : kProbeNo;
}

/// Posts the message that the shell posts for a drop of one path; the window that takes it frees
/// the list.
void PostDrop(HWND control, ATOM atom) {
  wchar_t path[256] = {};
  const UINT length = GlobalGetAtomNameW(atom, path, static_cast<int>(std::size(path)));
  // The path ends in one NUL and the list in another.
  const SIZE_T text_bytes = (length + 2) * sizeof(wchar_t);
  const HGLOBAL list = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + text_bytes);
  auto* head = static_cast<DROPFILES*>(GlobalLock(list));
  if (head == nullptr) return;
  head->pFiles = sizeof(DROPFILES);
  head->fWide = TRUE;
  std::memcpy(head + 1, path, length * sizeof(wchar_t));
  GlobalUnlock(list);
  PostMessageW(control, WM_DROPFILES, reinterpret_cast<WPARAM>(list), 0);
}

bool IsTimerWindow(HWND window) {
  wchar_t name[32] = L"";
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return lstrcmpW(name, kTimerWindowClass) == 0;
}

/// Microseconds of the counter that never goes back.
LONG_PTR Now() {
  LARGE_INTEGER counter;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&counter);
  QueryPerformanceFrequency(&frequency);
  return static_cast<LONG_PTR>(counter.QuadPart * 1'000'000 / frequency.QuadPart);
}

LONG_PTR Property(HWND window, const wchar_t* name) {
  return reinterpret_cast<LONG_PTR>(GetPropW(window, name));
}
void SetProperty(HWND window, const wchar_t* name, LONG_PTR value) {
  SetPropW(window, name, reinterpret_cast<HANDLE>(value));
}

/// A tick begins.
void NoteTick(HWND window) {
  static LONG_PTR last = 0;
  const LONG_PTR now = Now();
  const LONG_PTR shortest = Property(window, kShortestPeriodName);
  const LONG_PTR period = now - last;
  if (last != 0 && (shortest == 0 || period < shortest)) {
    SetProperty(window, kShortestPeriodName, period);
  }
  last = now;
  SetProperty(window, kTicksName, Property(window, kTicksName) + 1);
}

}  // namespace
}  // namespace tolvane::window

extern "C" __declspec(dllexport) LRESULT CALLBACK
    TolvaneTickProcedure(int code, WPARAM removed, LPARAM lparam) {
  using namespace tolvane::window;
  const auto& message = *reinterpret_cast<const MSG*>(lparam);
  if (code == HC_ACTION && removed == PM_REMOVE && message.message == WM_TIMER &&
      IsTimerWindow(message.hwnd)) {
    NoteTick(message.hwnd);
  }
  return CallNextHookEx(nullptr, code, removed, lparam);
}

extern "C" __declspec(dllexport) LRESULT CALLBACK
    TolvaneProbeProcedure(int code, WPARAM wparam, LPARAM lparam) {
  using namespace tolvane::window;
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lparam);
  static const UINT question = RegisterWindowMessageW(kProbeName);
  if (code == HC_ACTION && sent.message == question) {
    const WPARAM state = ItemState(sent.hwnd, static_cast<UINT>(sent.wParam));
    SetPropW(sent.hwnd, kProbeName, reinterpret_cast<HANDLE>(state));
  }
  static const UINT hand = RegisterWindowMessageW(kHandName);
  if (code == HC_ACTION && sent.message == hand) {
    const WPARAM state = HandOver(sent.hwnd, static_cast<int>(sent.wParam));
    SetPropW(sent.hwnd, kProbeName, reinterpret_cast<HANDLE>(state));
  }
  static const UINT drop = RegisterWindowMessageW(kDropName);
  if (code == HC_ACTION && sent.message == drop)
    PostDrop(sent.hwnd, static_cast<ATOM>(sent.wParam));
  return CallNextHookEx(nullptr, code, wparam, lparam);
}
