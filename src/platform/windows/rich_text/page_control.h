#pragma once

#include <optional>

#include "platform/string.h"
#include "platform/windows/rich_text/page_painter.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// How far a rich edit control is zoomed, as a fraction; both 0 when it never was.
struct Zoom {
  int part = 0;
  int whole = 0;
  friend bool operator==(const Zoom&, const Zoom&) = default;
};

/// Makes an empty rich edit control with the page's font and colours, without word wrap, as child
/// number `control` of `parent`. Null when the system has no rich edit.
[[nodiscard]] HWND CreatePageControl(HWND parent, int control, bool visible);

/// Replaces the content by `text` in the default format; nothing of that can be undone.
void SetPlainText(HWND page_control, StringView text);

[[nodiscard]] Zoom ZoomOf(HWND page_control);

/// How `page_control`, which is empty and then is again, shows a page, in pixels. Nothing of it can
/// be undone afterwards.
[[nodiscard]] PageLook LookOf(HWND page_control);

/// The same for a control of this zoom that is not empty, taken from another one beside it. Nothing
/// when the system refuses that one.
[[nodiscard]] std::optional<PageLook> LookBeside(HWND page_control, Zoom zoom);

}  // namespace tolvane::platform::windows
