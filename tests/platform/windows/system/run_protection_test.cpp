#include "platform/windows/system/run_protection.h"

#include <gtest/gtest.h>

#include "platform/windows/main_window/splash_window.h"

namespace tolvane::platform::windows {
namespace {

/// What the thread asks of the system; asking sets it, so it is put back.
EXECUTION_STATE Wishes() {
  const EXECUTION_STATE state = SetThreadExecutionState(ES_CONTINUOUS);
  SetThreadExecutionState(state);
  return state;
}

class ProtectedRun : public testing::Test {
 protected:
  // Any top window of this thread does.
  SplashWindow window_{GetModuleHandleW(nullptr)};
};

TEST_F(ProtectedRun, KeepsTheComputerAndItsScreenAwake) {
  WindowsRunProtection protection(window_.Hwnd());
  SetThreadExecutionState(ES_CONTINUOUS);
  protection.Begin();
  EXPECT_EQ(Wishes(), ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED);
  protection.End();
  EXPECT_EQ(Wishes(), ES_CONTINUOUS);
}

}  // namespace
}  // namespace tolvane::platform::windows
