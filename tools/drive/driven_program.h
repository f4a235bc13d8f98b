#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

#include "tools/drive/driven_window.h"

namespace tolvane::window {

constexpr const wchar_t* kMainWindowClass = L"TolvaneMainWindow";
constexpr const wchar_t* kSplashClass = L"TolvaneSplash";

/// One process of the real program, started in a folder of its own. The process ends with the
/// object, by force if it does not end by itself.
class DrivenProgram {
 public:
  /// Starts `executable` with its folder as the working folder.
  explicit DrivenProgram(const std::filesystem::path& executable);
  ~DrivenProgram();
  DrivenProgram(const DrivenProgram&) = delete;
  DrivenProgram& operator=(const DrivenProgram&) = delete;

  [[nodiscard]] bool Started() const { return process_.hProcess != nullptr; }
  [[nodiscard]] DWORD Id() const { return process_.dwProcessId; }
  [[nodiscard]] bool Running() const;

  /// The main window once it is shown, which is when start-up is over; without one in time, a
  /// window that does not exist.
  [[nodiscard]] DrivenWindow WaitForMainWindow() const;

  /// The exit code, empty when the process has not ended in time.
  [[nodiscard]] std::optional<DWORD> WaitForEnd() const;

 private:
  PROCESS_INFORMATION process_{};
};

/// A fresh copy of the program's folder, without settings files, removed with the object.
class ProgramFolder {
 public:
  /// `source` is the folder that scripts/build leaves.
  ProgramFolder(const std::filesystem::path& source, const std::filesystem::path& target);
  ~ProgramFolder();
  ProgramFolder(const ProgramFolder&) = delete;
  ProgramFolder& operator=(const ProgramFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  [[nodiscard]] std::filesystem::path Executable() const { return path_ / L"Tolvane.exe"; }

 private:
  std::filesystem::path path_;
};

/// The folder of the vendors' libraries on this system.
[[nodiscard]] std::filesystem::path SystemFolder();

/// The folder of the running executable.
[[nodiscard]] std::filesystem::path OwnFolder();

}  // namespace tolvane::window
