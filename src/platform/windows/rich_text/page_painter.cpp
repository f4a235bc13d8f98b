#include "platform/windows/rich_text/page_painter.h"

#include <algorithm>

#include "platform/windows/rich_text/view_look.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

constexpr std::int64_t kLargest = 1 << 30;  // pixels; scroll bars and GDI end near there

LONG Clamped(std::int64_t pixels) { return static_cast<LONG>(std::min(pixels, kLargest)); }

/// Of a colour 24 bits count, as in the page's rich text.
COLORREF Rgb(const ColourRun& run) { return static_cast<COLORREF>(run.colour) & 0xFFFFFF; }

FontHandle MakeFont(int height) {
  return FontHandle(CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, kViewFontCharset,
                                OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                DEFAULT_PITCH | FF_DONTCARE, kViewFontName));
}

int CellWidth(HFONT font) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, font);
  SIZE size{};
  GetTextExtentPoint32W(screen, L"0", 1, &size);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return std::max<int>(size.cx, 1);
}

}  // namespace

/// The band of one line on the target.
struct PagePainter::Strip {
  HDC target;
  StringView text;
  int left;  // of the line's first character; below 0 when scrolled
  int top;
  int right;  // of the seen area
};

void PagePainter::Look(const PageLook& look) {
  const bool new_font = !font_ || look.font_height != look_.font_height;
  look_ = look;
  if (!new_font) return;
  font_ = MakeFont(look.font_height);
  cell_width_ = CellWidth(font_.Get());
}

SIZE PagePainter::Extent(const PageLines& lines) const {
  const std::int64_t width = std::int64_t{lines.WidestInCells()} * cell_width_;
  const std::int64_t height = static_cast<std::int64_t>(lines.Count()) * look_.line_height;
  return {Clamped(width + 2 * look_.origin.x), Clamped(height + look_.origin.y)};
}

void PagePainter::Paint(HDC target, SIZE size, POINT scroll, const RichTextPage& page,
                        const PageLines& lines) {
  const RECT all{0, 0, size.cx, size.cy};
  FillRect(target, &all, ground_.Get());
  const HGDIOBJ font_before = SelectObject(target, font_.Get());
  SetBkMode(target, TRANSPARENT);

  const auto above =
      static_cast<std::size_t>(std::max<int>(scroll.y - look_.origin.y, 0) / look_.line_height);
  const std::int32_t start = above < lines.Count() ? lines.At(above).start : 0;
  ColourWalk colours(page.colours, start);
  ColourWalk backgrounds(page.backgrounds, start);
  for (std::size_t i = above; i < lines.Count(); ++i) {
    const auto top = look_.origin.y - scroll.y + static_cast<int>(i) * look_.line_height;
    if (top >= size.cy) break;
    PaintLine({target, page.text, look_.origin.x - scroll.x, top, size.cx}, lines.At(i), colours,
              backgrounds);
  }
  SelectObject(target, font_before);
}

std::int32_t PagePainter::MeasureLine(const Strip& strip, PageLines::Line line) {
  // No character is narrower than a cell: what can be seen of a line of any length.
  const int seen = std::max(strip.right - strip.left, 0) / cell_width_ + 1;
  const int count = std::min(line.end - line.start, seen);
  if (ends_.size() < static_cast<std::size_t>(count)) ends_.resize(static_cast<std::size_t>(count));
  SIZE size{};
  GetTextExtentExPointW(strip.target,
                        WideData(strip.text.substr(static_cast<std::size_t>(line.start))), count, 0,
                        nullptr, ends_.data(), &size);
  return count;
}

void PagePainter::PaintLine(const Strip& strip, PageLines::Line line, ColourWalk& colours,
                            ColourWalk& backgrounds) {
  const auto seen_end = ends_.begin() + MeasureLine(strip, line);
  const auto seen = std::upper_bound(ends_.begin(), seen_end, -strip.left);
  const auto end = line.start + static_cast<std::int32_t>(seen_end - ends_.begin());
  auto position = line.start + static_cast<std::int32_t>(seen - ends_.begin());
  while (position < end) {
    const ColourRun* colour = colours.At(position);
    const ColourRun* background = backgrounds.At(position);
    const std::int32_t next = std::min({end, colours.NextChange(), backgrounds.NextChange()});
    const auto edge = [&](std::int32_t at) {
      return strip.left +
             (at == line.start ? 0 : ends_[static_cast<std::size_t>(at - line.start) - 1]);
    };
    const RECT cell{edge(position), strip.top, edge(next), strip.top + look_.line_height};
    SetTextColor(strip.target, colour != nullptr ? Rgb(*colour) : kPageText);
    if (background != nullptr) SetBkColor(strip.target, Rgb(*background));
    ExtTextOutW(strip.target, cell.left, cell.top, background != nullptr ? ETO_OPAQUE : 0, &cell,
                WideData(strip.text.substr(static_cast<std::size_t>(position))),
                static_cast<UINT>(next - position), nullptr);
    position = next;
  }
}

}  // namespace tolvane::platform::windows
