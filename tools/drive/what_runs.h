#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tolvane::window {

struct RunningProgram {
  DWORD id;
  std::wstring name;  ///< Of its file, without the folder.
};

/// The processes of this system; none where it does not tell them.
[[nodiscard]] std::vector<RunningProgram> RunningPrograms();

/// The processes of this system and their top-level windows, one process to a line, for the report
/// of a wait that came to nothing: "Tolvane.exe 284: TolvaneMainWindow "Tolvane" hidden".
[[nodiscard]] std::wstring WhatRuns();

}  // namespace tolvane::window
