// empty_window: a program that shows a window with nothing in it until that is closed. It stands
// for what the system itself needs for any program, and is measured beside Tolvane by
// start_compare.
#include <windows.h>

#include "tools/drive/driven_program.h"

namespace {

LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message != WM_DESTROY) return DefWindowProcW(window, message, wparam, lparam);
  PostQuitMessage(0);
  return 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR /*command_line*/,
                    int show_command) {
  WNDCLASSEXW window_class{};
  window_class.cbSize = sizeof(window_class);
  window_class.lpfnWndProc = &Handle;
  window_class.hInstance = instance;
  window_class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  window_class.lpszClassName = tolvane::window::kMainWindowClass;  // found as the program's is
  RegisterClassExW(&window_class);
  const HWND window =
      CreateWindowExW(0, window_class.lpszClassName, L"", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                      CW_USEDEFAULT, 800, 600, nullptr, nullptr, instance, nullptr);
  ShowWindow(window, show_command);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}
