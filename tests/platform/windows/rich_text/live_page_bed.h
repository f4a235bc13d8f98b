#pragma once

#include "platform/windows/system/text.h"
#include "tests/platform/windows/rich_text/view_bed.h"

namespace tolvane::platform::windows {

inline constexpr StringView kText = u"ID\r\n1A0  01 02\r\n除外 1A1\r\n";

/// The view during a run, with a page of known text and colours.
class LivePage : public LiveView {
 protected:
  /// A page whose "02" is red and whose "ID" is marked.
  void SwapMarkedPage() {
    auto page = Page(kText);
    page->colours.Paint(12, 14, 0x0000FF);
    page->backgrounds.Paint(0, 2, 0x80FFFF);
    view_.SwapPage(page);
  }
  /// Asks as a program that reads the screen does, the page live each time, until its answer comes
  /// from the control: there is a pause between two fillings.
  template <typename Ask>
  [[nodiscard]] bool FillsForReader(Ask ask) {
    constexpr ULONGLONG kDeadline = 10'000;  // ms
    for (const ULONGLONG end = GetTickCount64() + kDeadline; GetTickCount64() < end;) {
      SwapMarkedPage();
      ask();
      if (Surface() == nullptr) return true;
    }
    return false;
  }
  void ExpectMarkedPageInTheControl() {
    EXPECT_EQ(Surface(), nullptr);
    EXPECT_EQ(view_.Text(), kText);
    EXPECT_EQ(ColourAt(11), 0U);
    EXPECT_EQ(ColourAt(12), 0x0000FFU);
    EXPECT_EQ(ColourAt(13), 0x0000FFU);
    EXPECT_EQ(FormatAt(0).crBackColor, 0x80FFFFU);
    EXPECT_NE(FormatAt(4).dwEffects & CFE_AUTOBACKCOLOR, 0U);
  }
};

}  // namespace tolvane::platform::windows
