#pragma once

#include "platform/windows/rich_text/page_lines.h"
#include "platform/windows/rich_text/page_painter.h"
#include "platform/windows/rich_text/paint_buffer.h"
#include "platform/windows/window_parts/base_window.h"

namespace tolvane::platform::windows {

/// A window laid over a rich edit control, inside its border, that paints a page as the control
/// would show it, and scrolls it. It takes neither focus nor text: a click gives the focus to the
/// control under it, and the right button is handled by the control.
class LiveSurface final : public BaseWindow<LiveSurface> {
 public:
  static constexpr const wchar_t* kClassName = L"TolvaneLiveSurface";
  static void AdjustClass(WNDCLASSEXW& window_class);

  LiveSurface() = default;
  ~LiveSurface() { Destroy(); }

  /// Makes the hidden window as a sibling of `beneath`. False when the system refuses one.
  [[nodiscard]] bool CreateOver(HWND beneath);

  void Look(const PageLook& look) { painter_.Look(look); }
  /// Shows `page` from its first line, over the control. The page must stay as it is until Hide or
  /// the next Show. Painted when the system asks for it, or by UpdateWindow at once.
  void Show(const RichTextPage& page);
  void Hide();
  /// Lays out and paints the largest page once, unseen, ahead of the first page: a system that does
  /// it for the first time needs tens of milliseconds. Where memory has run out, the first page
  /// tries again. Not while a page is shown.
  void TakeMemory();
  /// Moves over the control again after it has moved or changed its size; hides with it, and where
  /// no page is shown.
  void FollowBeneath();

  /// Pixels that the page is scrolled by.
  [[nodiscard]] POINT ScrollPosition() const { return scroll_; }
  /// True when `key`, a virtual key code, is one that scrolls.
  bool ScrollByKey(WPARAM key);

  LRESULT HandleMessage(UINT message, WPARAM wparam, LPARAM lparam);

 private:
  struct Bar {
    int range;  // pixels of the page
    int room;   // pixels that are seen
    int position;
    friend bool operator==(const Bar&, const Bar&) = default;
  };

  void Paint();
  void PaintOn(HDC target);
  void PaintPage(HDC target, const RichTextPage& page);
  [[nodiscard]] SIZE ClientSize() const;
  [[nodiscard]] SIZE Room(SIZE extent) const;
  void ScrollTo(std::int64_t x, std::int64_t y);
  void ScrollBarTo(int which, std::int64_t position);
  void ShowBar(int which, const Bar& bar);
  void ScrollByBar(int which, int request);
  void ScrollByWheel(int which, int delta);

  HWND beneath_ = nullptr;  // the control, destroyed by the common parent
  const RichTextPage* page_ = nullptr;
  PageLines lines_;
  PagePainter painter_;
  PaintBuffer buffer_;
  POINT scroll_{0, 0};
  Bar bars_[2]{};  // by SB_HORZ, SB_VERT
};

}  // namespace tolvane::platform::windows
