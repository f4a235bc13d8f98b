// The text size of the accessibility settings enlarges the font that the windows are written in: no
// label is clipped then, and no window leaves the screen.
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <algorithm>

#include "platform/windows/main_window/form1_layout.h"
#include "platform/windows/window_parts/window_place.h"
#include "tests/platform/windows/all_windows_bed.h"
#include "tests/platform/windows/system/window_picture.h"

namespace tolvane::platform::windows {
namespace {

/// The font for messages in `percent` of its size, as the accessibility settings leave it, while
/// the object lives.
class TextSize {
 public:
  explicit TextSize(int percent) {
    before_.cbSize = sizeof(before_);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(before_), &before_, 0);
    NONCLIENTMETRICSW metrics = before_;
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, percent, 100);
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  }
  ~TextSize() { SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof(before_), &before_, 0); }
  TextSize(const TextSize&) = delete;
  TextSize& operator=(const TextSize&) = delete;

  /// Pixels.
  [[nodiscard]] static int Height() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    return std::abs(static_cast<int>(metrics.lfMessageFont.lfHeight));
  }

 private:
  NONCLIENTMETRICSW before_{};
};

SIZE TextSizeIn(HWND control, const String& text) {
  const HDC context = GetDC(control);
  const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
  const HGDIOBJ before = SelectObject(context, font);
  SIZE size{};
  // Of a letter at least, which every line must have room for.
  const String measured = text.empty() ? u"A" : text;
  GetTextExtentPoint32W(context, WideData(StringView(measured)), static_cast<int>(measured.size()),
                        &size);
  SelectObject(context, before);
  ReleaseDC(control, context);
  return text.empty() ? SIZE{0, size.cy} : size;
}

/// Pixels that a button needs in addition to its text.
int BesideText(HWND button) {
  switch (GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK) {
    case BS_AUTOCHECKBOX:
    case BS_AUTORADIOBUTTON:
      return Dpi().Pixels(13 + 4);
    case BS_GROUPBOX:
      return Dpi().Pixels(2 * 9);
    default:
      return Dpi().Pixels(2 * 4);
  }
}

bool ShowsNoText(HWND control, const String& window_class) {
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
  if (window_class == u"static") {
    return (style & SS_TYPEMASK) == SS_ICON || (style & SS_TYPEMASK) == SS_ETCHEDFRAME;
  }
  if (window_class == u"button") return (style & BS_TYPEMASK) == BS_OWNERDRAW;
  return window_class != u"edit";
}

void ExpectNoLabelClipped(HWND window) {
  ASSERT_NE(window, nullptr);
  int seen = 0;
  ForEachShownChild(window, [&seen](HWND control) {
    const String window_class = ClassOf(control);
    if (ShowsNoText(control, window_class)) return;
    const String text = WindowText(control);
    if (text.empty() && window_class == u"static") return;  // a bar of the splash
    ++seen;
    const SIZE size = TextSizeIn(control, text);
    const int beside = window_class == u"button" ? BesideText(control) : 0;
    RECT client{};
    GetClientRect(control, &client);
    EXPECT_LE(size.cy, client.bottom) << GetDlgCtrlID(control);
    if ((GetWindowLongPtrW(control, GWL_STYLE) & ES_MULTILINE) != 0 && window_class == u"edit") {
      return;
    }
    EXPECT_LE(size.cx + beside, client.right)
        << GetDlgCtrlID(control) << " " << testing::PrintToString(text);
  });
  EXPECT_GE(seen, 2);
}

void ExpectOnScreen(HWND window) {
  const ScreenPlace area = WorkArea(window);
  RECT bounds{};
  GetWindowRect(window, &bounds);
  EXPECT_GE(bounds.left, area.left);
  EXPECT_GE(bounds.top, area.top);
  EXPECT_LE(bounds.right, area.left + area.width);
  EXPECT_LE(bounds.bottom, area.top + area.height);
}

class Labels : public testing::TestWithParam<int> {};

TEST_P(Labels, AreNotClippedInAnyWindowWhichStaysOnTheScreen) {
  const int height_before = TextSize::Height();
  const TextSize text_size(GetParam());
  if (TextSize::Height() != MulDiv(height_before, GetParam(), 100)) {
    GTEST_SKIP() << "the system does not let its text size be changed";
  }
  AllWindows windows;
  ASSERT_TRUE(windows.Made());
  const auto expect_good = [](HWND window, const char* name) {
    SCOPED_TRACE(name);
    ExpectNoLabelClipped(window);
    ExpectOnScreen(window);
  };
  expect_good(windows.Main(), "main window, as it opens");
  SetWindowPos(windows.Main(), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
  expect_good(windows.Main(), "main window, at its smallest");
  SetWindowTextW(GetDlgItem(windows.SplashScreen(), id::Lb_msg), L"検索結果の判断処理中");
  expect_good(windows.SplashScreen(), "splash");
  expect_good(windows.OpenVersion(), "version");
  const char* names[] = {"common settings", "extension settings", "log settings"};
  for (int i = 0; i < 3; ++i) {
    const HWND dialog = windows.OpenSettings(i);
    expect_good(dialog, names[i]);
    UpdateWindow(dialog);
    EXPECT_TRUE(WindowPicture(dialog).Save(u"text-size-" + String(1, u'0' + char16_t(i)) + u"-" +
                                           String(1, char16_t(u'0' + GetParam() / 100))));
    expect_good(AllWindows::OpenHelp(dialog, id::Img_Help_Setting), "help");
    AllWindows::Close(dialog);
  }
}

INSTANTIATE_TEST_SUITE_P(TextSizes, Labels, testing::Values(100, 150, 225));

TEST(TextSize, EnlargesTheWindowsAsFarAsTheScreenGoes) {
  const auto width_of_settings = [](int percent) {
    const TextSize text_size(percent);
    AllWindows windows;
    RECT client{};
    GetClientRect(windows.OpenSettings(0), &client);
    return client.right;
  };
  const LONG usual = width_of_settings(100);
  EXPECT_GT(width_of_settings(150), usual);
  EXPECT_EQ(width_of_settings(60), usual) << "smaller than the resolution says";
}

}  // namespace
}  // namespace tolvane::platform::windows
