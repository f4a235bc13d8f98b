#pragma once

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// What a window is created with.
struct WindowPlace {
  DWORD style = 0;
  DWORD extended_style = 0;
  RECT bounds{};  // pixels, of the whole window
  HWND parent = nullptr;
  HMENU menu = nullptr;
};

/// One window of the program bound to one object. `Derived` gives `static constexpr const wchar_t*
/// kClassName`, `static void AdjustClass(WNDCLASSEXW&)` and `LRESULT HandleMessage(UINT, WPARAM,
/// LPARAM)`, which hands on to DefaultHandling what it does not know.
///
/// `Derived`'s destructor calls Destroy, while its members still stand. Nothing is thrown across
/// the procedure: an exception in a handler ends the program at once.
template <typename Derived>
class BaseWindow {
 public:
  BaseWindow() = default;
  BaseWindow(const BaseWindow&) = delete;
  BaseWindow& operator=(const BaseWindow&) = delete;

  /// Null before Create and after the window was destroyed.
  [[nodiscard]] HWND Hwnd() const { return window_; }

  [[nodiscard]] bool Create(HINSTANCE instance, const WindowPlace& place) {
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof(window_class);
    window_class.lpfnWndProc = &BaseWindow::Procedure;
    window_class.hInstance = instance;
    window_class.lpszClassName = Derived::kClassName;
    Derived::AdjustClass(window_class);
    // Fails harmlessly when the class is registered already.
    RegisterClassExW(&window_class);
    const RECT& bounds = place.bounds;
    return CreateWindowExW(place.extended_style, Derived::kClassName, L"", place.style, bounds.left,
                           bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
                           place.parent, place.menu, instance,
                           static_cast<Derived*>(this)) != nullptr;
  }

  void Destroy() {
    if (window_ != nullptr) DestroyWindow(window_);
  }

 protected:
  ~BaseWindow() = default;

  LRESULT DefaultHandling(UINT message, WPARAM wparam, LPARAM lparam) {
    return DefWindowProcW(window_, message, wparam, lparam);
  }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam,
                                    LPARAM lparam) noexcept {
    if (message == WM_NCCREATE) {
      const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lparam);
      auto* object = static_cast<Derived*>(creation->lpCreateParams);
      object->window_ = window;
      SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(object));
    }
    auto* object = reinterpret_cast<Derived*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (object == nullptr) return DefWindowProcW(window, message, wparam, lparam);
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      object->window_ = nullptr;
      return DefWindowProcW(window, message, wparam, lparam);
    }
    return object->HandleMessage(message, wparam, lparam);
  }

  HWND window_ = nullptr;  // destroyed by the system with its parent, by Destroy otherwise
};

}  // namespace tolvane::platform::windows
