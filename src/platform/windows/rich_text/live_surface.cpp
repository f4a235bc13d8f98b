#include "platform/windows/rich_text/live_surface.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace tolvane::platform::windows {
namespace {

struct ScrollKey {
  WPARAM key;
  int bar;
  int request;
};

constexpr ScrollKey kScrollKeys[] = {
    {VK_UP, SB_VERT, SB_LINEUP},    {VK_DOWN, SB_VERT, SB_LINEDOWN},
    {VK_PRIOR, SB_VERT, SB_PAGEUP}, {VK_NEXT, SB_VERT, SB_PAGEDOWN},
    {VK_HOME, SB_VERT, SB_TOP},     {VK_END, SB_VERT, SB_BOTTOM},
    {VK_LEFT, SB_HORZ, SB_LINEUP},  {VK_RIGHT, SB_HORZ, SB_LINEDOWN}};

/// As many lines as a page has at most, the first one of all characters of its rows.
String LargestText() {
  String text;
  for (char16_t character = u' '; character <= u'~'; ++character) text += character;
  for (std::size_t line = 0; line < RichTextPage::kLines_MAX; ++line) text += u'\n';
  return text;
}

/// Pixels of one turn of the wheel by one notch.
int NotchPixels(int line, int page) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  return lines == WHEEL_PAGESCROLL ? page : MulDiv(static_cast<int>(lines), line, 1);
}

}  // namespace

void LiveSurface::AdjustClass(WNDCLASSEXW& window_class) {
  window_class.hCursor = LoadCursorW(nullptr, IDC_IBEAM);
}

bool LiveSurface::CreateOver(HWND beneath) {
  beneath_ = beneath;
  return Create(GetModuleHandleW(nullptr),
                {.style = WS_CHILD | WS_CLIPSIBLINGS | WS_VSCROLL | WS_HSCROLL,
                 .parent = GetParent(beneath)});
}

void LiveSurface::Show(const RichTextPage& page) {
  const bool was_hidden = page_ == nullptr;
  page_ = &page;
  lines_.Find(page.text);
  ScrollTo(0, 0);
  // Behind the bars, which a shown window would paint twice.
  if (was_hidden) FollowBeneath();
}

void LiveSurface::Hide() {
  page_ = nullptr;
  ShowWindow(Hwnd(), SW_HIDE);
}

void LiveSurface::TakeMemory() {
  RichTextPage page;
  try {
    page.text = LargestText();
    lines_.Find(page.text);
  } catch (const std::bad_alloc&) {
    return;  // the first page tries again
  }
  FollowBeneath();
  ScrollTo(0, 0);
  const HDC target = GetDC(Hwnd());
  PaintPage(target, page);
  ReleaseDC(Hwnd(), target);
}

void LiveSurface::FollowBeneath() {
  const bool shown = page_ != nullptr && (GetWindowLongPtrW(beneath_, GWL_STYLE) & WS_VISIBLE) != 0;
  RECT bounds{};
  GetWindowRect(beneath_, &bounds);
  MapWindowPoints(nullptr, GetParent(beneath_), reinterpret_cast<POINT*>(&bounds), 2);
  InflateRect(&bounds, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
  SetWindowPos(Hwnd(), HWND_TOP, bounds.left, bounds.top, bounds.right - bounds.left,
               bounds.bottom - bounds.top,
               SWP_NOACTIVATE | SWP_NOCOPYBITS | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

LRESULT LiveSurface::HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_PRINTCLIENT:
      PaintOn(reinterpret_cast<HDC>(wparam));
      return 0;
    case WM_ERASEBKGND:
      return TRUE;  // every painting covers everything
    case WM_SIZE:
      ScrollTo(scroll_.x, scroll_.y);
      return 0;
    case WM_VSCROLL:
      ScrollByBar(SB_VERT, LOWORD(wparam));
      return 0;
    case WM_HSCROLL:
      ScrollByBar(SB_HORZ, LOWORD(wparam));
      return 0;
    case WM_MOUSEWHEEL:
      ScrollByWheel(SB_VERT, -GET_WHEEL_DELTA_WPARAM(wparam));
      return 0;
    case WM_MOUSEHWHEEL:
      ScrollByWheel(SB_HORZ, GET_WHEEL_DELTA_WPARAM(wparam));
      return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
      SetFocus(beneath_);
      return 0;
    case WM_RBUTTONUP:
      // In the control's own pixels: its client area begins where this one does.
      return SendMessageW(beneath_, message, wparam, lparam);
    default:
      return DefaultHandling(message, wparam, lparam);
  }
}

void LiveSurface::Paint() {
  PAINTSTRUCT painting;
  const HDC target = BeginPaint(Hwnd(), &painting);
  if (target != nullptr) PaintOn(target);
  EndPaint(Hwnd(), &painting);
}

void LiveSurface::PaintOn(HDC target) {
  if (page_ != nullptr) PaintPage(target, *page_);
}

void LiveSurface::PaintPage(HDC target, const RichTextPage& page) {
  const SIZE size = ClientSize();
  if (size.cx <= 0 || size.cy <= 0) return;
  const HDC canvas = buffer_.Prepare(target, size);
  painter_.Paint(canvas, size, scroll_, page, lines_);
  if (canvas != target) buffer_.Deliver(target, size);
}

SIZE LiveSurface::ClientSize() const {
  RECT client{};
  GetClientRect(Hwnd(), &client);
  return {client.right, client.bottom};
}

/// What is seen of a page of `extent`: the window without the scroll bars that it needs.
SIZE LiveSurface::Room(SIZE extent) const {
  RECT bounds{};
  GetWindowRect(Hwnd(), &bounds);
  const SIZE all{bounds.right - bounds.left, bounds.bottom - bounds.top};
  const int bar_width = GetSystemMetrics(SM_CXVSCROLL);
  const int bar_height = GetSystemMetrics(SM_CYHSCROLL);
  bool vertical = extent.cy > all.cy;
  const bool horizontal = extent.cx > all.cx - (vertical ? bar_width : 0);
  vertical = vertical || (horizontal && extent.cy > all.cy - bar_height);
  return {std::max<LONG>(all.cx - (vertical ? bar_width : 0), 0),
          std::max<LONG>(all.cy - (horizontal ? bar_height : 0), 0)};
}

void LiveSurface::ScrollTo(std::int64_t x, std::int64_t y) {
  const SIZE extent = painter_.Extent(lines_);
  const SIZE room = Room(extent);
  const auto place = [](std::int64_t wanted, LONG range, LONG seen) {
    return static_cast<LONG>(std::clamp<std::int64_t>(wanted, 0, std::max<LONG>(range - seen, 0)));
  };
  scroll_ = {place(x, extent.cx, room.cx), place(y, extent.cy, room.cy)};
  ShowBar(SB_HORZ, {static_cast<int>(extent.cx), static_cast<int>(room.cx), scroll_.x});
  ShowBar(SB_VERT, {static_cast<int>(extent.cy), static_cast<int>(room.cy), scroll_.y});
  InvalidateRect(Hwnd(), nullptr, FALSE);
}

/// A page that is seen whole has no bar. One that comes or goes sends WM_SIZE, which ends here
/// again with the same numbers.
void LiveSurface::ShowBar(int which, const Bar& bar) {
  if (bars_[which] == bar) return;
  bars_[which] = bar;
  const SCROLLINFO info{sizeof(info),
                        SIF_RANGE | SIF_PAGE | SIF_POS,
                        0,
                        bar.range - 1,
                        static_cast<UINT>(bar.room),
                        bar.position,
                        0};
  SetScrollInfo(Hwnd(), which, &info, TRUE);
}

void LiveSurface::ScrollBarTo(int which, std::int64_t position) {
  which == SB_VERT ? ScrollTo(scroll_.x, position) : ScrollTo(position, scroll_.y);
}

void LiveSurface::ScrollByBar(int which, int request) {
  const Bar& bar = bars_[which];
  const int line = painter_.Look().line_height;
  std::int64_t position = bar.position;
  switch (request) {
    case SB_LINEUP:
      position -= line;
      break;
    case SB_LINEDOWN:
      position += line;
      break;
    case SB_PAGEUP:
      position -= std::max(bar.room - line, line);
      break;
    case SB_PAGEDOWN:
      position += std::max(bar.room - line, line);
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: {
      SCROLLINFO info{};
      info.cbSize = sizeof(info);
      info.fMask = SIF_TRACKPOS;
      GetScrollInfo(Hwnd(), which, &info);
      position = info.nTrackPos;
      break;
    }
    case SB_TOP:
      position = 0;
      break;
    case SB_BOTTOM:
      position = bar.range;
      break;
    default:
      return;
  }
  ScrollBarTo(which, position);
}

void LiveSurface::ScrollByWheel(int which, int delta) {
  const Bar& bar = bars_[which];
  const int pixels = MulDiv(NotchPixels(painter_.Look().line_height, bar.room), delta, WHEEL_DELTA);
  ScrollBarTo(which, std::int64_t{bar.position} + pixels);
}

bool LiveSurface::ScrollByKey(WPARAM key) {
  const auto* found = std::ranges::find(kScrollKeys, key, &ScrollKey::key);
  if (found == std::end(kScrollKeys)) return false;
  ScrollByBar(found->bar, found->request);
  return true;
}

}  // namespace tolvane::platform::windows
