#pragma once

#include <vector>

#include "platform/rich_text_page.h"
#include "platform/windows/rich_text/page_lines.h"
#include "platform/windows/rich_text/view_look.h"
#include "platform/windows/system/handle.h"

namespace tolvane::platform::windows {

/// How the page looks on the rich edit control, in pixels.
struct PageLook {
  POINT origin;     // of the first character's cell in the client area, unscrolled
  int line_height;  // above 0
  int font_height;  // of the characters without the inner leading, above 0
};

/// Paints the lines of a page as the rich edit control shows them.
class PagePainter {
 public:
  void Look(const PageLook& look);
  [[nodiscard]] const PageLook& Look() const { return look_; }

  /// Room that the whole page takes, margins included.
  [[nodiscard]] SIZE Extent(const PageLines& lines) const;

  /// Paints an area of `size` pixels on `target`, from its origin: ground, then the lines that are
  /// seen there when the page is scrolled by `scroll`. `lines` are those of `page`.
  void Paint(HDC target, SIZE size, POINT scroll, const RichTextPage& page, const PageLines& lines);

 private:
  struct Strip;

  void PaintLine(const Strip& strip, PageLines::Line line, ColourWalk& colours,
                 ColourWalk& backgrounds);
  /// Fills `ends_` as far as the line can be seen; gives that number of characters.
  [[nodiscard]] std::int32_t MeasureLine(const Strip& strip, PageLines::Line line);

  PageLook look_{{0, 0}, 1, 1};
  FontHandle font_;
  BrushHandle ground_{CreateSolidBrush(kPageGround)};
  int cell_width_ = 1;     // of a half-width character
  std::vector<INT> ends_;  // of the characters of one line, from its left end; kept for its storage
};

}  // namespace tolvane::platform::windows
