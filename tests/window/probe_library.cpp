// The part of the menu probe that lives in the driven program.
#include "tests/window/probe.h"

namespace tolvane::window {
namespace {

WPARAM ItemState(HWND window, UINT id) {
  const UINT state = GetMenuState(GetMenu(window), id, MF_BYCOMMAND);
  if (state == static_cast<UINT>(-1)) return kProbeNoItem;
  return (state & (MF_GRAYED | MF_DISABLED)) != 0 ? kProbeDisabled : kProbeEnabled;
}

}  // namespace
}  // namespace tolvane::window

extern "C" __declspec(dllexport) LRESULT CALLBACK
    TolvaneProbeProcedure(int code, WPARAM wparam, LPARAM lparam) {
  using namespace tolvane::window;
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lparam);
  static const UINT question = RegisterWindowMessageW(kProbeName);
  if (code == HC_ACTION && sent.message == question) {
    const WPARAM state = ItemState(sent.hwnd, static_cast<UINT>(sent.wParam));
    SetPropW(sent.hwnd, kProbeName, reinterpret_cast<HANDLE>(state));
  }
  return CallNextHookEx(nullptr, code, wparam, lparam);
}
