#include "platform/windows/rich_text/page_control.h"

#include <gtest/gtest.h>

#include "platform/windows/rich_text/view_look.h"
#include "platform/windows/system/text.h"
#include "tests/platform/windows/rich_text/refused_windows.h"

namespace tolvane::platform::windows {
namespace {

class PageControl : public testing::Test {
 protected:
  static constexpr int kId = 7;

  void SetUp() override {
    parent_ = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP, 0, 0, 620, 420, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    control_ = CreatePageControl(parent_, kId, true);
    ASSERT_NE(control_, nullptr);
    MoveWindow(control_, 10, 10, 600, 400, FALSE);
  }
  void TearDown() override { DestroyWindow(parent_); }

  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
    return SendMessageW(control_, message, wparam, lparam);
  }
  void SetZoom(int part, int whole) const {
    ASSERT_TRUE(Send(EM_SETZOOM, static_cast<WPARAM>(part), whole));
  }
  [[nodiscard]] POINTL PlaceOf(LPARAM character) const {
    POINTL place{};
    Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), character);
    return place;
  }
  /// Of the character at `position`.
  [[nodiscard]] CHARFORMAT2W FormatAt(LONG position) const {
    CHARRANGE range{position, position + 1};
    Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    CHARFORMAT2W format{};
    format.cbSize = sizeof(format);
    Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    return format;
  }
  void ExpectPageFormat(const CHARFORMAT2W& format) const {
    EXPECT_STREQ(format.szFaceName, kViewFontName);
    EXPECT_EQ(format.yHeight, kViewFontPoints * 20);
    EXPECT_EQ(format.crTextColor, kPageText);
    EXPECT_EQ(format.dwEffects & CFE_AUTOCOLOR, 0U);
    EXPECT_NE(format.dwEffects & CFE_AUTOBACKCOLOR, 0U);
  }
  /// The lines of `look` are where the control has them.
  void ExpectLookOfTheControl(const PageLook& look) const {
    SetPlainText(control_, u"1A0\r1A1\r1A2");
    EXPECT_EQ(look.origin.x, PlaceOf(0).x);
    EXPECT_EQ(look.origin.y, PlaceOf(0).y);
    EXPECT_EQ(look.line_height, PlaceOf(4).y - PlaceOf(0).y);
    EXPECT_EQ(look.line_height, PlaceOf(8).y - PlaceOf(4).y);
  }

  HWND parent_ = nullptr;
  HWND control_ = nullptr;
};

TEST_F(PageControl, IsAnEmptyChildThatTabReaches) {
  EXPECT_EQ(GetDlgItem(parent_, kId), control_);
  EXPECT_EQ(GetWindowTextLengthW(control_), 0);
  const LONG_PTR style = GetWindowLongPtrW(control_, GWL_STYLE);
  EXPECT_NE(style & WS_VISIBLE, 0);
  EXPECT_NE(style & WS_TABSTOP, 0);
  const HWND hidden = CreatePageControl(parent_, kId + 1, false);
  EXPECT_EQ(GetWindowLongPtrW(hidden, GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(PageControl, TakesALongTextWithoutWrappingIt) {
  constexpr int kLength = 100'000;  // above the limit that a control begins with
  SetPlainText(control_, String(kLength, u'x'));
  EXPECT_EQ(GetWindowTextLengthW(control_), kLength);
  EXPECT_EQ(Send(EM_GETLINECOUNT), 1);
  EXPECT_GT(Send(EM_GETLIMITTEXT), kLength);
}

TEST_F(PageControl, APlainTextHasThePagesFormatAndIsNotUndone) {
  SetPlainText(control_, u"1A0");
  ExpectPageFormat(FormatAt(0));
  CHARFORMAT2W red = FormatAt(0);
  red.dwMask = CFM_COLOR | CFM_BACKCOLOR | CFM_SIZE | CFM_BOLD;
  red.dwEffects = CFE_BOLD;
  red.yHeight *= 2;
  red.crTextColor = 0x0000FF;
  red.crBackColor = 0x80FFFF;
  Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&red));
  ASSERT_TRUE(Send(EM_CANUNDO));
  SetPlainText(control_, u"1A1");
  ExpectPageFormat(FormatAt(0));
  EXPECT_EQ(FormatAt(0).dwEffects & CFE_BOLD, 0U);
  EXPECT_FALSE(Send(EM_CANUNDO));
}

TEST_F(PageControl, ALookIsThatOfTheControlWhichIsEmptyAfterwards) {
  const PageLook look = LookOf(control_);
  EXPECT_EQ(GetWindowTextLengthW(control_), 0);
  EXPECT_FALSE(Send(EM_CANUNDO));
  EXPECT_GT(look.font_height, 1);
  ExpectLookOfTheControl(look);
}

TEST_F(PageControl, ALookIsThatOfAZoomedControlToo) {
  const int before = LookOf(control_).font_height;
  SetZoom(2, 1);
  const PageLook look = LookOf(control_);
  EXPECT_EQ(look.font_height, 2 * before);
  ExpectLookOfTheControl(look);
}

TEST_F(PageControl, ALookBesideIsThatOfTheControlWhichKeepsItsText) {
  SetZoom(3, 2);
  const PageLook own = LookOf(control_);
  SetPlainText(control_, u"notes");
  const std::optional<PageLook> look = LookBeside(control_, ZoomOf(control_));
  ASSERT_TRUE(look.has_value());
  EXPECT_EQ(look->origin.x, own.origin.x);
  EXPECT_EQ(look->origin.y, own.origin.y);
  EXPECT_EQ(look->line_height, own.line_height);
  EXPECT_EQ(look->font_height, own.font_height);
  EXPECT_EQ(WindowText(control_), u"notes");
  EXPECT_EQ(GetWindow(parent_, GW_CHILD), control_);
  EXPECT_EQ(GetWindow(control_, GW_HWNDNEXT), nullptr) << "the other control has stayed";
}

TEST_F(PageControl, ThereIsNoLookBesideWhereTheSystemRefusesAControl) {
  SetPlainText(control_, u"notes");
  const RefusedWindows refused;
  EXPECT_FALSE(LookBeside(control_, ZoomOf(control_)).has_value());
  EXPECT_EQ(refused.Count(), 1);
  EXPECT_EQ(WindowText(control_), u"notes");
}

}  // namespace
}  // namespace tolvane::platform::windows
