#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/shell.h"
#include "platform/windows/dialogs/dialog_surroundings.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/window_parts/base_window.h"
#include "platform/windows/window_parts/dpi.h"
#include "shell/formversion.h"

namespace tolvane::platform::windows {

/// FormVersion on the screen: without a title bar, moved by dragging its face. Not modal, so it may
/// be up during a run.
class FormVersionWindow final : public BaseWindow<FormVersionWindow> {
 public:
  static constexpr const wchar_t* kClassName = L"TolvaneVersion";
  static void AdjustClass(WNDCLASSEXW& window_class);

  /// `mouseCursor` is the hand shown over the links.
  FormVersionWindow(const DialogSurroundings& surroundings, Shell& shell, const ELM327_Info& device,
                    const std::int32_t& mouseCursor)
      : surroundings_(surroundings), shell_(shell), device_(device), mouse_cursor_(mouseCursor) {}
  ~FormVersionWindow() { Destroy(); }

  void Show();
  void Unload();

  LRESULT HandleMessage(UINT message, WPARAM wparam, LPARAM lparam);

 private:
  void Load();
  [[nodiscard]] HWND Child(int part) const { return GetDlgItem(Hwnd(), part); }
  void AddStatic(int part, DWORD style, const RECT& place, const String& text, HFONT font);
  static LRESULT CALLBACK PartProcedure(HWND child, UINT message, WPARAM wparam, LPARAM lparam,
                                        UINT_PTR part, DWORD_PTR object) noexcept;
  /// Mouse messages over a part, or over the form's own face with 0.
  void OnMouse(UINT message, WPARAM keys, LPARAM place, int part);
  void OnPress(LPARAM place, int part);
  void OnRelease(int part);
  void OnKeyCommand(int part);
  void Hide() {
    Deliver([this] { ShowWindow(Hwnd(), SW_HIDE); });
  }
  void OpenLink() {
    Deliver([this] { FormVersion::PicURL_Click(shell_); });
  }
  void Drag();
  void Deliver(EventGate::Event event) { surroundings_.gate.Deliver(std::move(event)); }
  [[nodiscard]] LRESULT PaintPart(HDC context, int part) const;

  const DialogSurroundings& surroundings_;
  Shell& shell_;
  const ELM327_Info& device_;
  const std::int32_t& mouse_cursor_;
  FormVersion form_;
  Dpi dpi_;
  FontHandle font_;
  FontHandle title_font_;
  FontHandle link_font_;
  IconHandle ok_picture_;
  IconHandle link_picture_;
  BrushHandle ok_brush_;
  LPARAM pressed_at_ = 0;       // the place within the part that the press told
  std::optional<int> pressed_;  // the part, 0 for the face
};

}  // namespace tolvane::platform::windows
