#include "tests/window/probe.h"

#include <cstring>

#include "tools/drive/driven_window.h"

namespace tolvane::window {

ProgramProbe::ProgramProbe(const std::filesystem::path& library, HWND window)
    : library_(LoadLibraryW(library.c_str())), window_(window) {
  if (library_ == nullptr) return;
  const FARPROC address = GetProcAddress(library_, kProbeProcedure);
  HOOKPROC procedure = nullptr;
  static_assert(sizeof(procedure) == sizeof(address));
  std::memcpy(&procedure, &address, sizeof(procedure));
  if (procedure == nullptr) return;
  hook_ = SetWindowsHookExW(WH_CALLWNDPROC, procedure, library_,
                            GetWindowThreadProcessId(window, nullptr));
}

ProgramProbe::~ProgramProbe() {
  if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
  if (library_ != nullptr) FreeLibrary(library_);
}

std::optional<bool> ProgramProbe::Ask(const wchar_t* question, int id) const {
  RemovePropW(window_, kProbeName);
  const UINT message = RegisterWindowMessageW(question);
  if (hook_ == nullptr || !Send(window_, message, static_cast<WPARAM>(id), 0)) return std::nullopt;
  const auto state = reinterpret_cast<WPARAM>(GetPropW(window_, kProbeName));
  RemovePropW(window_, kProbeName);
  if (state != kProbeNo && state != kProbeYes) return std::nullopt;
  return state == kProbeYes;
}

bool ProgramProbe::Drop(HWND control, const std::wstring& path) const {
  const ATOM atom = GlobalAddAtomW(path.c_str());
  if (hook_ == nullptr || atom == 0) return false;
  const bool sent = Send(control, RegisterWindowMessageW(kDropName), atom, 0).has_value();
  GlobalDeleteAtom(atom);
  return sent;
}

}  // namespace tolvane::window
