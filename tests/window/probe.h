#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

namespace tolvane::window {

/// Name of the registered message that asks for a menu item, and of the window property.
constexpr const wchar_t* kProbeName = L"TolvaneMenuProbe";
/// Name of the registered message that asks for the cursor over a control.
constexpr const wchar_t* kHandName = L"TolvaneHandProbe";

/// A procedure of the probe's library, hooked into the thread of a window as long as it lives.
class ProbeHook {
 public:
  ProbeHook(const std::filesystem::path& library, const char* procedure, int kind, HWND window);
  ~ProbeHook();
  ProbeHook(const ProbeHook&) = delete;
  ProbeHook& operator=(const ProbeHook&) = delete;

  [[nodiscard]] bool Set() const { return hook_ != nullptr; }

 private:
  HMODULE library_;
  HHOOK hook_ = nullptr;
};

/// What can be seen and done in another process alone, at a window of it. A small library is hooked
/// into the window's thread and sees registered messages arrive. A running program answers in its
/// yields.
class ProgramProbe {
 public:
  /// `library` is the path of tolvane_probe.dll.
  ProgramProbe(const std::filesystem::path& library, HWND window);

  /// Whether an item of the menu bar or of the pop-up that is open, which only its own process
  /// knows, can be chosen. The library leaves the state on the window as a property, which any
  /// process can read. Empty when there is no such item or no answer.
  [[nodiscard]] std::optional<bool> Enabled(int item) const { return Ask(kProbeName, item); }

  /// Whether the mouse is a hand over a control of the window. Empty without such a control or
  /// answer.
  [[nodiscard]] std::optional<bool> HandOver(int control) const { return Ask(kHandName, control); }

  /// Drops one file or folder, of at most 255 characters, onto a control of the thread as the file
  /// manager does; the list of dropped files must be made by the process that takes it.
  [[nodiscard]] bool Drop(HWND control, const std::wstring& path) const;

 private:
  [[nodiscard]] std::optional<bool> Ask(const wchar_t* question, int part) const;

  ProbeHook hook_;
  HWND window_;
};

/// Watches the ticks of the program's view from within its thread, where nothing of another
/// process's pace shows. One at a time.
class TickProbe {
 public:
  /// `library` is the path of tolvane_probe.dll, `window` any window of the program.
  TickProbe(const std::filesystem::path& library, HWND window);

  /// The shortest time so far, in microseconds, from the message of one tick to that of the next;
  /// empty before the second tick.
  [[nodiscard]] std::optional<long> ShortestPeriod() const;
  /// Ticks so far.
  [[nodiscard]] long Ticks() const;

 private:
  ProbeHook hook_;
};

// Properties of the window that carries the timer.
constexpr const wchar_t* kShortestPeriodName = L"TolvaneShortestPeriod";
constexpr const wchar_t* kTicksName = L"TolvaneTicks";
constexpr const wchar_t* kTimerWindowClass = L"TolvaneWorker";
/// Export of the library, for a hook of the kind WH_GETMESSAGE.
constexpr const char* kTickProcedure = "TolvaneTickProcedure";

/// Name of the registered message that drops a path, given as a global atom.
constexpr const wchar_t* kDropName = L"TolvaneDropProbe";
/// Export of the library, its bitness that of the driven program.
constexpr const char* kProbeProcedure = "TolvaneProbeProcedure";

// Values of the property, the answer to either question; it is absent until one has been answered.
constexpr WPARAM kProbeNoItem = 1;
constexpr WPARAM kProbeNo = 2;
constexpr WPARAM kProbeYes = 3;

}  // namespace tolvane::window
