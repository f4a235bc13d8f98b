#pragma once

#include <functional>

#include "platform/controls.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

// Child windows of the main window. None is owned: the parent's end is theirs. Before Attach, and
// on a window that is gone, writing does nothing and reading gives the empty value.

class WindowsButton final : public Button {
 public:
  void Attach(HWND window) { window_ = window; }
  void Enabled(bool enabled) override { EnableWindow(window_, enabled); }

 private:
  HWND window_ = nullptr;
};

class WindowsMenuItem final : public MenuItem {
 public:
  /// `menu` is any menu above the item.
  void Attach(HMENU menu, int command) {
    menu_ = menu;
    command_ = static_cast<UINT>(command);
  }
  void Enabled(bool enabled) override;

 private:
  HMENU menu_ = nullptr;
  UINT command_ = 0;
};

class WindowsPicture final : public Picture {
 public:
  void Attach(HWND window) { window_ = window; }
  void Visible(bool visible) override { ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE); }

 private:
  HWND window_ = nullptr;
};

class WindowsTextBox final : public TextBox {
 public:
  void Attach(HWND window) { window_ = window; }
  [[nodiscard]] String Text() const override;
  /// Shown at once, with everything else of the main window that waits to be painted; no event is
  /// let through.
  void Text(StringView text) override;
  void Locked(bool locked) override;
  void SetFocus() override { ::SetFocus(window_); }

 private:
  HWND window_ = nullptr;
};

class WindowsComboBox final : public ComboBox {
 public:
  /// `clicked` is called, at once, when a line is selected in code.
  void Attach(HWND window, std::function<void()> clicked) {
    window_ = window;
    clicked_ = std::move(clicked);
  }
  void Enabled(bool enabled) override { EnableWindow(window_, enabled); }
  void AddItem(StringView text) override;
  [[nodiscard]] std::int32_t ListIndex() const override;
  void ListIndex(std::int32_t index) override;
  [[nodiscard]] String Text() const override;

 private:
  HWND window_ = nullptr;
  std::function<void()> clicked_;
};

}  // namespace tolvane::platform::windows
