// How the main window comes to the screen, and what becomes of one that cannot be made.
#include <gtest/gtest.h>

#include <string>

#include "tests/platform/windows/main_window/main_window_bed.h"

namespace tolvane::platform::windows {
namespace {

TEST_F(MainWindowTest, TakesTheActivationFromTheSplash) {
  splash_.Visible(true);
  ASSERT_EQ(GetActiveWindow(), splash_.Hwnd());
  splash_.Visible(false);
  EXPECT_EQ(GetActiveWindow(), splash_.Hwnd()) << "another program has got it";
  window_.Start(SW_SHOW);
  EXPECT_EQ(GetActiveWindow(), window_.Hwnd());
  EXPECT_FALSE(IsWindowVisible(splash_.Hwnd()));
}

/// A class of windows of which the system makes none, in the place of one of the program's.
class RefusedClass {
 public:
  explicit RefusedClass(const wchar_t* name) : name_(name) {
    UnregisterClassW(name, GetModuleHandleW(nullptr));
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof(window_class);
    window_class.lpfnWndProc = Refuse;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = name;
    registered_ = RegisterClassExW(&window_class) != 0;
  }
  ~RefusedClass() { UnregisterClassW(name_, GetModuleHandleW(nullptr)); }
  RefusedClass(const RefusedClass&) = delete;
  RefusedClass& operator=(const RefusedClass&) = delete;

  [[nodiscard]] bool Registered() const { return registered_; }

 private:
  static LRESULT CALLBACK Refuse(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return message == WM_NCCREATE ? FALSE : DefWindowProcW(window, message, wparam, lparam);
  }

  const wchar_t* name_;
  bool registered_ = false;
};

struct MadeWindows : ProgramWindows {
  bool made = window_.CreateHidden();
};

TEST(MainWindow, IsNotMadeWithoutAllThatBelongsToIt) {
  for (const wchar_t* name : {SplashWindow::kClassName, WorkerWindow::kClassName,
                              Form1Window::kClassName, LiveSurface::kClassName}) {
    const RefusedClass refused(name);
    ASSERT_TRUE(refused.Registered()) << testing::PrintToString(std::wstring(name));
    EXPECT_FALSE(MadeWindows().made) << testing::PrintToString(std::wstring(name));
  }
}

TEST(MainWindow, LeavesTheLibraryOfItsPageLoaded) {
  {
    const MadeWindows windows;
    ASSERT_TRUE(windows.made);
  }
  EXPECT_NE(GetModuleHandleW(L"msftedit.dll"), nullptr);
}

}  // namespace
}  // namespace tolvane::platform::windows
