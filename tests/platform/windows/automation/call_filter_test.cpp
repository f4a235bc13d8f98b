#include "platform/windows/automation/call_filter.h"

#include <gtest/gtest.h>

namespace tolvane::platform::windows {
namespace {

/// Registered with the system and asked through it, as a call asks it.
class CallFilterTest : public testing::Test {
 protected:
  CallFilterTest() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~CallFilterTest() override { CoUninitialize(); }

  static IMessageFilter* Registered() {
    IMessageFilter* filter = nullptr;
    CoRegisterMessageFilter(nullptr, &filter);
    CoRegisterMessageFilter(filter, nullptr);
    return filter;
  }
};

int paints = 0;

LRESULT CALLBACK CountPaints(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_PAINT) ++paints;
  return DefWindowProcW(window, message, wparam, lparam);
}

TEST_F(CallFilterTest, StandsForTheThreadWhileItLives) {
  {
    const CallFilter filter;
    EXPECT_EQ(Registered(), &filter);
  }
  EXPECT_EQ(Registered(), nullptr);
}

TEST_F(CallFilterTest, InputStaysInTheQueueAndWindowsArePainted) {
  const CallFilter filter;
  WNDCLASSW window_class{};
  window_class.lpfnWndProc = CountPaints;
  window_class.lpszClassName = L"CallFilterTest";
  RegisterClassW(&window_class);
  const HWND window = CreateWindowExW(0, L"CallFilterTest", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50,
                                      50, nullptr, nullptr, nullptr, nullptr);
  UpdateWindow(window);
  MSG message;
  while (PeekMessageW(&message, window, 0, 0, PM_REMOVE)) {
  }
  paints = 0;
  InvalidateRect(window, nullptr, FALSE);
  PostMessageW(window, WM_KEYDOWN, VK_F5, 0);
  PostMessageW(window, WM_LBUTTONDOWN, 0, 0);
  const DWORD answer = Registered()->MessagePending(nullptr, 0, PENDINGTYPE_TOPLEVEL);
  EXPECT_EQ(answer, static_cast<DWORD>(PENDINGMSG_WAITNOPROCESS));
  EXPECT_EQ(paints, 1);
  for (const UINT kept : {WM_KEYDOWN, WM_LBUTTONDOWN}) {
    EXPECT_TRUE(PeekMessageW(&message, window, kept, kept, PM_REMOVE)) << kept;
  }
  DestroyWindow(window);
}

TEST_F(CallFilterTest, AWishToQuitStaysInTheQueue) {
  const CallFilter filter;
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
  }
  PostQuitMessage(7);
  Registered()->MessagePending(nullptr, 0, PENDINGTYPE_TOPLEVEL);
  EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 7U);
}

TEST_F(CallFilterTest, ARejectedCallComesBackToWhoMadeIt) {
  const CallFilter filter;
  EXPECT_EQ(Registered()->RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER),
            static_cast<DWORD>(-1));
  EXPECT_EQ(Registered()->HandleInComingCall(CALLTYPE_TOPLEVEL, nullptr, 0, nullptr),
            static_cast<DWORD>(SERVERCALL_ISHANDLED));
}

}  // namespace
}  // namespace tolvane::platform::windows
