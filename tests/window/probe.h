#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

namespace tolvane::window {

/// Looks at the menu bar of a window of another process. Menus are known to their own process
/// alone, so a small library is hooked into the window's thread: it sees a registered message with
/// an item's id arrive, and leaves the item's state on the window as a property, which any process
/// can read. A running program answers in its yields.
class MenuProbe {
 public:
  /// `library` is the path of tolvane_probe.dll.
  MenuProbe(const std::filesystem::path& library, HWND window);
  ~MenuProbe();
  MenuProbe(const MenuProbe&) = delete;
  MenuProbe& operator=(const MenuProbe&) = delete;

  /// Whether the item can be chosen; empty when there is no such item or no answer.
  [[nodiscard]] std::optional<bool> Enabled(int id) const;

 private:
  HMODULE library_;
  HHOOK hook_ = nullptr;
  HWND window_;
};

/// Name of the registered message and of the window property.
constexpr const wchar_t* kProbeName = L"TolvaneMenuProbe";
/// Export of the library, its bitness that of the driven program.
constexpr const char* kProbeProcedure = "TolvaneProbeProcedure";

// Values of the property; it is absent until a question has been answered.
constexpr WPARAM kProbeNoItem = 1;
constexpr WPARAM kProbeDisabled = 2;
constexpr WPARAM kProbeEnabled = 3;

}  // namespace tolvane::window
