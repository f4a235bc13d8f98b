#include "platform/windows/main_window/splash_window.h"

#include <gtest/gtest.h>
#include <tolvane_control_ids.h>

#include "platform/windows/system/text.h"
#include "tests/platform/windows/system/window_picture.h"

namespace tolvane::platform::windows {
namespace {

class SplashTest : public testing::Test {
 protected:
  /// Whether the mouse would hit it, and what it paints would reach the screen.
  [[nodiscard]] bool CanBeSeen() const {
    RECT bounds{};
    GetWindowRect(splash_.Hwnd(), &bounds);
    const POINT corner{bounds.left + 4, bounds.top + 4};  // beside the parts
    const HDC context = GetDC(splash_.Hwnd());
    RECT paintable{};
    const bool can_paint = GetClipBox(context, &paintable) != NULLREGION;
    ReleaseDC(splash_.Hwnd(), context);
    const bool is_hit = WindowFromPoint(corner) == splash_.Hwnd();
    EXPECT_EQ(can_paint, is_hit);
    return can_paint && is_hit;
  }

  SplashWindow splash_{GetModuleHandleW(nullptr)};
};

TEST_F(SplashTest, ShowsThePhaseUntilItMakesWay) {
  EXPECT_FALSE(IsWindowVisible(splash_.Hwnd()));
  splash_.Lb_msg(u"デバイスの初期処理中");
  splash_.Visible(true);
  EXPECT_TRUE(IsWindowVisible(splash_.Hwnd()));
  EXPECT_EQ(WindowText(GetDlgItem(splash_.Hwnd(), id::Lb_msg)), u"デバイスの初期処理中");
  EXPECT_EQ(WindowText(GetDlgItem(splash_.Hwnd(), id::Lb_Splash_Title)), u"Tolvane");
  EXPECT_TRUE(WindowPicture(splash_.Hwnd()).Save(u"splash"));
  splash_.MakeWay();
  EXPECT_TRUE(IsWindowVisible(splash_.Hwnd())) << "nobody told it to go";
  EXPECT_TRUE(CanBeSeen());
}

TEST_F(SplashTest, IsNotSeenOnceItIsHiddenAndStaysActiveUntilItMakesWay) {
  splash_.Visible(true);
  EXPECT_TRUE(CanBeSeen());
  splash_.Visible(false);
  EXPECT_FALSE(CanBeSeen());
  EXPECT_EQ(GetActiveWindow(), splash_.Hwnd()) << "no window of the program would be left";
  splash_.Progress(0.9);
  EXPECT_FALSE(CanBeSeen()) << "the last steps move an invisible bar";
  splash_.MakeWay();
  EXPECT_FALSE(IsWindowVisible(splash_.Hwnd()));
  splash_.Visible(true);
  EXPECT_TRUE(CanBeSeen());
}

TEST_F(SplashTest, DoesNotCloseWhereItIsAskedTo) {
  SendMessageW(splash_.Hwnd(), WM_CLOSE, 0, 0);
  EXPECT_NE(splash_.Hwnd(), nullptr);
}

TEST_F(SplashTest, ProgressUncoversTheTrackFromTheLeft) {
  const HWND track = GetDlgItem(splash_.Hwnd(), id::Pic_ProgressBar_0);
  const HWND cover = GetDlgItem(track, id::Pic_ProgressBar_1);
  RECT bounds{};
  GetClientRect(track, &bounds);
  for (const double fraction : {0.0, 0.15, 0.45, 1.0}) {
    splash_.Progress(fraction);
    POINT corner{0, 0};
    MapWindowPoints(cover, track, &corner, 1);
    EXPECT_NEAR(corner.x, bounds.right * fraction, 0.5) << fraction;
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
