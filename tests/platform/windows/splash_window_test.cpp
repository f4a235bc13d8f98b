#include "platform/windows/splash_window.h"

#include <gtest/gtest.h>

#include "platform/windows/text.h"
#include "tests/platform/windows/window_picture.h"

namespace tolvane::platform::windows {
namespace {

// Before resource.h: its name is also the name of this member.
void ShowPhase(Splash& splash, StringView text) { splash.Lb_msg(text); }

}  // namespace
}  // namespace tolvane::platform::windows

// Last, see there.
#include "platform/windows/resources/resource.h"

namespace tolvane::platform::windows {
namespace {

class SplashTest : public testing::Test {
 protected:
  SplashWindow splash_{GetModuleHandleW(nullptr)};
};

TEST_F(SplashTest, ShowsThePhaseUntilItMakesWay) {
  EXPECT_FALSE(IsWindowVisible(splash_.Hwnd()));
  ShowPhase(splash_, u"デバイスの初期処理中");
  splash_.Visible(true);
  EXPECT_TRUE(IsWindowVisible(splash_.Hwnd()));
  EXPECT_EQ(WindowText(GetDlgItem(splash_.Hwnd(), Lb_msg)), u"デバイスの初期処理中");
  EXPECT_TRUE(WindowPicture(splash_.Hwnd()).Save(u"splash"));
  splash_.MakeWay();
  EXPECT_TRUE(IsWindowVisible(splash_.Hwnd())) << "nobody told it to go";
  splash_.Visible(false);
  EXPECT_TRUE(IsWindowVisible(splash_.Hwnd())) << "no window of the program would be left";
  splash_.MakeWay();
  EXPECT_FALSE(IsWindowVisible(splash_.Hwnd()));
}

TEST_F(SplashTest, DoesNotCloseByTheKeyboard) {
  SendMessageW(splash_.Hwnd(), WM_CLOSE, 0, 0);
  EXPECT_NE(splash_.Hwnd(), nullptr);
}

TEST_F(SplashTest, ProgressUncoversTheTrackFromTheLeft) {
  const HWND track = GetDlgItem(splash_.Hwnd(), Pic_ProgressBar_0);
  const HWND cover = GetDlgItem(track, Pic_ProgressBar_1);
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
