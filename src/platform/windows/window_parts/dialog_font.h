#pragma once

#include "platform/windows/system/handle.h"
#include "platform/windows/window_parts/dpi.h"

namespace tolvane::platform::windows {

/// How the texts of a window are written and its layout is drawn: in the font that the user has set
/// for message boxes, which grows with the text size of the accessibility settings, on a layout
/// that grows with it, so that no label is clipped. Both become smaller where the window would not
/// fit on its screen.
class DialogLook {
 public:
  /// At the resolution of the screen, for a window that is not made yet.
  DialogLook() = default;
  /// For a client area of `client` units of 96 dpi in a window with a frame of `frame` pixels,
  /// where windows have `room` pixels.
  DialogLook(SIZE client, SIZE frame, SIZE room);

  [[nodiscard]] const Dpi& Scale() const { return scale_; }
  /// In `percent` of the size of the labels.
  [[nodiscard]] FontHandle Font(int percent = 100) const;

 private:
  Dpi scale_;
  int percent_ = 100;  // of the user's font
};

}  // namespace tolvane::platform::windows
