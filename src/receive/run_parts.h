#pragma once

#include <cstdint>
#include <functional>

#include "platform/main_window.h"
#include "platform/platform.h"

namespace tolvane {

/// What the workers are made with: the outside, and what they share with the main window's
/// controller, of which they know nothing else. All of it outlives them.
struct RunParts {
  const platform::Platform& platform;
  const platform::MainWindow& window;
  std::int32_t& RxFlag;  // 1 while the run is wanted
  /// Filled by a run that logs, as long as it holds records: writes them for a process that is
  /// about to be ended. Yields to nobody, so it may be called from below any yield of the run,
  /// which then writes nothing more.
  std::function<void()>& Session_End_Output;
};

}  // namespace tolvane
