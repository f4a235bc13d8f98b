// What the live surface shows: read back as pixels, and held against the rich edit control.
#include <string>

#include "tests/counting/allocations.h"
#include "tests/platform/windows/rich_text/refused_windows.h"
#include "tests/platform/windows/rich_text/view_bed.h"
#include "tests/platform/windows/system/window_picture.h"

namespace tolvane::platform::windows {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF;

class LiveSurfaceTest : public LiveView {
 protected:
  WindowPicture SurfacePicture() { return PaintedAnew(Surface()); }

  /// What the window paints, on a background that is not painted.
  static WindowPicture PaintedAnew(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    const HDC target = GetDC(window);
    const BrushHandle ground(CreateSolidBrush(RGB(1, 200, 2)));
    FillRect(target, &client, ground.Get());
    ReleaseDC(window, target);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    return WindowPicture(window);
  }

  /// Where the control shows a character cell, in its client area; fills the control.
  RECT CellAt(std::int32_t index) {
    const auto corner = [this](LPARAM at) {
      POINTL place{};
      Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), at);
      return place;
    };
    const LONG line_height = corner(Send(EM_LINEINDEX, 1)).y - corner(0).y;
    const POINTL place = corner(index);
    return {place.x, place.y, corner(index + 1).x, place.y + line_height};
  }

  /// The same page on the surface, then on the control. Pictures are left under `name`. Gives the
  /// number of pixels that differ, and prints the first few of them.
  int Difference(const RichTextPage& page, const String& name) {
    auto copy = std::make_unique<RichTextPage>(page);
    view_.SwapPage(copy);
    const WindowPicture surface = SurfacePicture();
    view_.Locked(false);
    EXPECT_EQ(Surface(), nullptr);
    const WindowPicture control = PaintedAnew(view_.Hwnd());
    EXPECT_TRUE(surface.Save(name + u"-surface"));
    EXPECT_TRUE(control.Save(name + u"-control"));
    EXPECT_EQ(surface.Width(), control.Width());
    EXPECT_EQ(surface.Height(), control.Height());
    int differing = 0;
    for (int y = 0; y < std::min(surface.Height(), control.Height()); ++y) {
      for (int x = 0; x < std::min(surface.Width(), control.Width()); ++x) {
        if (surface.At(x, y) == control.At(x, y)) continue;
        if (++differing <= 5) {
          ADD_FAILURE() << "at " << x << ", " << y << ": surface " << surface.At(x, y)
                        << ", control " << control.At(x, y);
        }
      }
    }
    return differing;
  }
};

TEST_F(LiveSurfaceTest, PaintsTextAndBackgroundWhereTheControlHasThem) {
  auto page = Page(u"ID  DLC\r\n1A0  8\r\n");
  page->colours.Paint(9, 12, 0x0000FF);
  page->backgrounds.Paint(0, 2, 0x00FFFF);
  view_.SwapPage(page);
  const WindowPicture picture = SurfacePicture();
  const RECT digit = CellAt(8);  // "1" of 1A0; the control counts the line end once
  const RECT marked = CellAt(0);
  const RECT unmarked = CellAt(2);
  EXPECT_TRUE(picture.Has(digit, 0x0000FF));
  EXPECT_FALSE(picture.Has(digit, 0));
  EXPECT_EQ(picture.At(marked.left, marked.top), 0x00FFFFU);
  EXPECT_EQ(picture.At(marked.right - 1, marked.bottom - 1), 0x00FFFFU);
  EXPECT_EQ(picture.At(unmarked.left, unmarked.top), kWhite);
  EXPECT_TRUE(picture.Has(marked, 0)) << "the marker hides its text";
}

TEST_F(LiveSurfaceTest, LooksAsTheControlDoes) {
  const String row = u"1A0  8   01 02 A3 04 05 06 07 08   100ms\r\n";
  String text = u"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
  RichTextPage page;
  for (int i = 0; i < 60; ++i) {
    const auto start = static_cast<std::int32_t>(text.size());
    text += row;
    for (int k = 0; k < 8; ++k) {
      if ((i + k) % 3 == 0)
        page.colours.Paint(start + 9 + 3 * k, start + 11 + 3 * k, 0x40 * k + i * 3);
    }
    if (i % 4 == 1) page.backgrounds.Paint(start + 12, start + 20, 0xF8D3FF);
    if (i % 7 == 2) page.backgrounds.Paint(start, start + 3, 0x000000);
  }
  text += u"\r\n【受信除外】 100 - 1FF, 7FF\r\nｱｲｳ 漢字 ABC\r\n";
  page.text = text;
  EXPECT_EQ(Difference(page, u"page"), 0);
}

/// Other colours for windows and their text while it lives.
class SystemColours {
 public:
  SystemColours(COLORREF window, COLORREF text) { Set(window, text); }
  ~SystemColours() { Set(before_[0], before_[1]); }
  SystemColours(const SystemColours&) = delete;
  SystemColours& operator=(const SystemColours&) = delete;

 private:
  static void Set(COLORREF window, COLORREF text) {
    constexpr int kWhich[] = {COLOR_WINDOW, COLOR_WINDOWTEXT};
    const COLORREF colours[] = {window, text};
    SetSysColors(2, kWhich, colours);
  }
  COLORREF before_[2] = {GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT)};
};

TEST_F(LiveSurfaceTest, BothFacesAreBlackOnWhiteWhateverTheSystemsColours) {
  constexpr COLORREF kDark = RGB(40, 0, 60);
  constexpr COLORREF kLight = RGB(250, 240, 0);
  const SystemColours high_contrast(kDark, kLight);
  ASSERT_EQ(GetSysColor(COLOR_WINDOW), kDark);
  RichTextPage page;
  page.text = u"ID  DLC\r\n1A0  8   01 02\r\n";
  page.colours.Paint(9, 12, 0x0000FF);
  page.backgrounds.Paint(0, 2, 0xA3FAFF);
  EXPECT_EQ(Difference(page, u"high-contrast"), 0);
  view_.SelText(u"note ");
  const WindowPicture control = PaintedAnew(view_.Hwnd());
  const RECT all{0, 0, control.Width(), control.Height()};
  EXPECT_TRUE(control.Has(all, RGB(0, 0, 0)));
  EXPECT_TRUE(control.Has(all, kWhite));
  EXPECT_FALSE(control.Has(all, kDark));
  EXPECT_FALSE(control.Has(all, kLight));
}

TEST_F(LiveSurfaceTest, LooksAsTheControlDoesWhereTheUserHasZoomed) {
  RichTextPage page;
  page.text = u"ID  DLC\r\n1A0  8   01 02\r\n受信除外 100 - 1FF\r\n";
  page.colours.Paint(9, 12, 0x0000FF);
  page.backgrounds.Paint(0, 2, 0xA3FAFF);
  ASSERT_TRUE(Send(EM_SETZOOM, 3, 2));
  view_.Locked(true);
  EXPECT_EQ(Difference(page, u"zoomed"), 0);
}

TEST_F(LiveSurfaceTest, ALookThatTheSystemRefusedIsTakenWithTheFirstPage) {
  RichTextPage page;
  page.text = u"ID  DLC\r\n1A0  8   01 02\r\n";
  ASSERT_TRUE(Send(EM_SETZOOM, 3, 2));
  {
    const RefusedWindows refused;
    view_.Locked(true);
    EXPECT_GT(refused.Count(), 0);
  }
  EXPECT_EQ(Difference(page, u"refused"), 0);
}

TEST_F(LiveSurfaceTest, WithoutALookOfItsZoomAPageIsShownAllTheSame) {
  ASSERT_TRUE(Send(EM_SETZOOM, 3, 2));
  const RefusedWindows refused;
  view_.Locked(true);
  Swap(u"ID  DLC\r\n1A0  8\r\n");
  const WindowPicture picture = SurfacePicture();
  EXPECT_TRUE(picture.Has({0, 0, picture.Width(), picture.Height()}, 0));
}

TEST_F(LiveSurfaceTest, LooksAsTheControlDoesWithoutScrollBars) {
  RichTextPage page;
  page.text = u"ID  DLC\r\n\r\n1A0  8   01 02\r\n受信除外 100 - 1FF";
  page.colours.Paint(20, 22, 0x0000FF);
  page.backgrounds.Paint(30, 34, 0xA3FAFF);
  EXPECT_EQ(Difference(page, u"small"), 0);
}

TEST_F(LiveSurfaceTest, OddPagesLookAsInTheControlToo) {
  RichTextPage beyond;
  beyond.text = u"ab";
  beyond.colours.Paint(1, 5000, 0x0000FF);
  beyond.backgrounds.Paint(100, 200, 0x00FFFF);
  RichTextPage surrogates;
  surrogates.text = u"a\U0001F697b";
  surrogates.text += char16_t{0xD83D};
  surrogates.text += u"c\r\n";
  surrogates.text += char16_t{0xDE97};
  surrogates.colours.Paint(2, 3, 0x0000FF);
  RichTextPage no_end;
  no_end.text = u"1A0  8   01";
  RichTextPage marked_ends;
  marked_ends.text = u"a\r\nb\r\n";
  marked_ends.backgrounds.Paint(0, 6, 0x00FFFF);
  const struct {
    const char* label;
    const RichTextPage& page;
  } rows[] = {{"empty", {}},
              {"no line end", no_end},
              {"runs beyond the text", beyond},
              {"lone surrogates", surrogates},
              {"marked line ends", marked_ends}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.label);
    view_.Locked(true);
    EXPECT_EQ(Difference(row.page, u"odd"), 0);
  }
}

TEST_F(LiveSurfaceTest, AVeryLongLineIsPaintedAtBothItsEnds) {
  constexpr int kLength = 300000;
  auto page = Page(String(kLength, u'x') + u"\r\nend");
  page->colours.Paint(kLength - 3, kLength, 0x0000FF);
  view_.SwapPage(page);
  const RECT all{0, 0, 100, 12};
  EXPECT_TRUE(SurfacePicture().Has(all, 0));
  SendMessageW(Surface(), WM_HSCROLL, SB_BOTTOM, 0);
  const WindowPicture right_end = SurfacePicture();
  const RECT last{right_end.Width() - 40, 0, right_end.Width(), 16};
  EXPECT_TRUE(right_end.Has(last, 0x0000FF)) << "the end of the line cannot be reached";
}

TEST_F(LiveSurfaceTest, TheLastOfFourThousandRowsIsReached) {
  auto page = Page(Lines(4001));
  const auto length = static_cast<std::int32_t>(page->text.size());
  page->colours.Paint(length - 7, length, 0x0000FF);
  view_.SwapPage(page);
  SendMessageW(Surface(), WM_VSCROLL, SB_BOTTOM, 0);
  const WindowPicture picture = SurfacePicture();
  const RECT foot{0, picture.Height() - 40, picture.Width(), picture.Height()};
  EXPECT_TRUE(picture.Has(foot, 0x0000FF));
}

TEST_F(LiveSurfaceTest, BarsWheelAndKeysScrollAndTheNextPageStartsAtTheTop) {
  const struct {
    const char* label;
    UINT message;
    WPARAM wparam;
  } rows[] = {{"line", WM_VSCROLL, SB_LINEDOWN},
              {"page", WM_VSCROLL, SB_PAGEDOWN},
              {"wheel", WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA))},
              {"page key", WM_KEYDOWN, VK_NEXT},
              {"end key", WM_KEYDOWN, VK_END}};
  for (const auto& row : rows) {
    Swap(Lines(100));
    EXPECT_EQ(ScrolledBy(Surface(), SB_VERT), 0) << row.label;
    Send(row.message, row.wparam);  // as with the focus, which the control has
    EXPECT_GT(ScrolledBy(Surface(), SB_VERT), 0) << row.label;
  }
  Swap(String(500, u'x'));
  Send(WM_HSCROLL, SB_LINEDOWN);
  EXPECT_GT(ScrolledBy(Surface(), SB_HORZ), 0);
  Send(WM_KEYDOWN, VK_LEFT);
  EXPECT_EQ(ScrolledBy(Surface(), SB_HORZ), 0);
}

TEST_F(LiveSurfaceTest, ScrollingEndsAtTheEndsOfThePage) {
  Swap(Lines(100));
  Send(WM_VSCROLL, SB_LINEUP);
  EXPECT_EQ(ScrolledBy(Surface(), SB_VERT), 0);
  Send(WM_VSCROLL, SB_BOTTOM);
  const int end = ScrolledBy(Surface(), SB_VERT);
  Send(WM_VSCROLL, SB_PAGEDOWN);
  EXPECT_EQ(ScrolledBy(Surface(), SB_VERT), end);
}

TEST_F(LiveSurfaceTest, HasScrollBarsOnlyWhereThePageNeedsThem) {
  const auto bars = [this] {
    return GetWindowLongPtrW(Surface(), GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL);
  };
  Swap(u"short\r\n");
  EXPECT_EQ(bars(), 0);
  Swap(Lines(100));
  EXPECT_EQ(bars(), WS_VSCROLL);
  Swap(Lines(100) + String(500, u'x'));
  EXPECT_EQ(bars(), WS_VSCROLL | WS_HSCROLL);
  Swap(String(500, u'x'));
  EXPECT_EQ(bars(), WS_HSCROLL);
}

TEST_F(LiveSurfaceTest, LiesInsideTheControlsBorderAndFollowsIt) {
  Swap(Lines(100));
  MoveWindow(view_.Hwnd(), 30, 20, 300, 200, TRUE);
  RECT surface{};
  RECT control{};
  GetWindowRect(Surface(), &surface);
  GetWindowRect(view_.Hwnd(), &control);
  InflateRect(&control, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
  EXPECT_TRUE(EqualRect(&surface, &control));
  ShowWindow(view_.Hwnd(), SW_HIDE);
  EXPECT_EQ(Surface(), nullptr);
  ShowWindow(view_.Hwnd(), SW_SHOWNA);
  EXPECT_NE(Surface(), nullptr);
}

TEST_F(LiveSurfaceTest, AfterAResizeNothingLiesBeyondTheEnd) {
  Swap(Lines(40));
  MoveWindow(view_.Hwnd(), 0, 0, 600, 100, TRUE);
  Send(WM_VSCROLL, SB_BOTTOM);
  MoveWindow(view_.Hwnd(), 0, 0, 600, 400, TRUE);
  const int before = ScrolledBy(Surface(), SB_VERT);
  Send(WM_VSCROLL, SB_BOTTOM);
  EXPECT_EQ(ScrolledBy(Surface(), SB_VERT), before);
}

TEST_F(LiveSurfaceTest, AClickFocusesTheControlAndTheRightButtonIsTheControls) {
  Swap(Lines(3));
  SetActiveWindow(parent_);
  SendMessageW(Surface(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  EXPECT_EQ(GetFocus(), view_.Hwnd());
  SendMessageW(Surface(), WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(context_menus_, 1);
  Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view_.Hwnd()), -1);
  EXPECT_EQ(context_menus_, 2);
  EXPECT_NE(Surface(), nullptr) << "the menu took the page off";
}

TEST_F(LiveSurfaceTest, RefreshPaintsAtOnceWhicheverFaceIsShown) {
  const auto unpainted = [](HWND face) { return GetUpdateRect(face, nullptr, FALSE) != FALSE; };
  Swap(Lines(3));
  ASSERT_TRUE(unpainted(Surface()));
  view_.Refresh();
  EXPECT_FALSE(unpainted(Surface()));
  view_.Locked(false);
  ASSERT_EQ(Surface(), nullptr);
  InvalidateRect(view_.Hwnd(), nullptr, FALSE);
  ASSERT_TRUE(unpainted(view_.Hwnd()));
  view_.Refresh();
  EXPECT_FALSE(unpainted(view_.Hwnd()));
}

TEST_F(LiveSurfaceTest, ATickThatIsShownAllocatesNothingInTheSteadyState) {
  auto page = Page(Lines(2000));
  auto other = Page(Lines(2000));
  const auto tick = [&] {
    view_.SwapPage(page);
    page.swap(other);
    view_.Refresh();
  };
  for (int i = 0; i < 3; ++i) tick();
  const std::int64_t before = counting::Allocations();
  for (int i = 0; i < 10; ++i) tick();
  EXPECT_EQ(counting::Allocations() - before, 0);
}

TEST_F(LiveSurfaceTest, TheFirstTickOfALongPageAllocatesNothingEither) {
  auto page = Page(Lines(4001));
  page->colours.Paint(0, 3, 0x0000FF);
  const std::int64_t before = counting::Allocations();
  view_.SwapPage(page);
  view_.Refresh();
  EXPECT_EQ(counting::Allocations() - before, 0);
}

}  // namespace
}  // namespace tolvane::platform::windows
