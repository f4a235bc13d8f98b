#include "tests/window/probe.h"

#include <algorithm>
#include <cstring>

#include "tools/drive/driven_window.h"

namespace tolvane::window {

ProbeHook::ProbeHook(const std::filesystem::path& library, const char* procedure, int kind,
                     HWND window)
    : library_(LoadLibraryW(library.c_str())) {
  if (library_ == nullptr) return;
  const FARPROC address = GetProcAddress(library_, procedure);
  HOOKPROC hook_procedure = nullptr;
  static_assert(sizeof(hook_procedure) == sizeof(address));
  std::memcpy(&hook_procedure, &address, sizeof(hook_procedure));
  if (hook_procedure == nullptr) return;
  hook_ =
      SetWindowsHookExW(kind, hook_procedure, library_, GetWindowThreadProcessId(window, nullptr));
}

ProbeHook::~ProbeHook() {
  if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
  if (library_ != nullptr) FreeLibrary(library_);
}

ProgramProbe::ProgramProbe(const std::filesystem::path& library, HWND window)
    : hook_(library, kProbeProcedure, WH_CALLWNDPROC, window), window_(window) {}

std::optional<bool> ProgramProbe::Ask(const wchar_t* question, int part) const {
  RemovePropW(window_, kProbeName);
  const UINT message = RegisterWindowMessageW(question);
  if (!hook_.Set() || !Send(window_, message, static_cast<WPARAM>(part), 0)) return std::nullopt;
  const auto state = reinterpret_cast<WPARAM>(GetPropW(window_, kProbeName));
  RemovePropW(window_, kProbeName);
  if (state != kProbeNo && state != kProbeYes) return std::nullopt;
  return state == kProbeYes;
}

bool ProgramProbe::Drop(HWND control, const std::wstring& path) const {
  const ATOM atom = GlobalAddAtomW(path.c_str());
  if (!hook_.Set() || atom == 0) return false;
  const bool sent = Send(control, RegisterWindowMessageW(kDropName), atom, 0).has_value();
  GlobalDeleteAtom(atom);
  return sent;
}

namespace {

/// The largest value that a window with a timer of the program's has under that name, 0 for none.
long TimerProperty(const wchar_t* name) {
  LONG_PTR largest = 0;
  HWND window = nullptr;
  while ((window = FindWindowExW(HWND_MESSAGE, window, kTimerWindowClass, nullptr)) != nullptr) {
    largest = std::max(largest, reinterpret_cast<LONG_PTR>(GetPropW(window, name)));
  }
  return static_cast<long>(largest);
}

}  // namespace

TickProbe::TickProbe(const std::filesystem::path& library, HWND window)
    : hook_(library, kTickProcedure, WH_GETMESSAGE, window) {}

std::optional<long> TickProbe::ShortestPeriod() const {
  const long period = TimerProperty(kShortestPeriodName);
  return period == 0 ? std::nullopt : std::optional(period);
}

long TickProbe::Ticks() const { return TimerProperty(kTicksName); }

}  // namespace tolvane::window
