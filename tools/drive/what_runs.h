#pragma once

#include <string>

namespace tolvane::window {

/// The processes of this system and their top-level windows, one process to a line, for the report
/// of a wait that came to nothing: "Tolvane.exe 284: TolvaneMainWindow "Tolvane" hidden".
[[nodiscard]] std::wstring WhatRuns();

}  // namespace tolvane::window
