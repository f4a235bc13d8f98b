#include "platform/windows/main_window/splash_window.h"

#include <tolvane_control_ids.h>
#include "platform/windows/dialogs/dialog_picture.h"
#include "platform/windows/system/text.h"
#include "platform/windows/window_parts/window_place.h"
#include "run/number_text.h"

namespace tolvane::platform::windows {
namespace {

// Units of 96 dpi.
constexpr int kWidth = 420;
constexpr int kHeight = 144;
constexpr int kMargin = 24;
constexpr int kPicture = id::ICON_SPLASH_SIZE;
constexpr int kLeft = kMargin + kPicture + kMargin;
constexpr int kBarWidth = kWidth - kLeft - kMargin;
constexpr int kBarHeight = 12;

constexpr COLORREF kTrackColour = RGB(47, 111, 143);
constexpr int kTitlePercent = 200;

}  // namespace

void SplashWindow::AdjustClass(WNDCLASSEXW& window_class) {
  window_class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  window_class.hCursor = LoadCursorW(nullptr, IDC_WAIT);
}

SplashWindow::SplashWindow(HINSTANCE instance)
    : instance_(instance), track_brush_(CreateSolidBrush(kTrackColour)) {
  const ScreenPlace area = WorkArea(nullptr);
  const DialogLook look({kWidth, kHeight}, {0, 0}, {area.width, area.height});
  dpi_ = look.Scale();
  font_ = look.Font();
  title_font_ = look.Font(kTitlePercent);
  const Extent size{dpi_.Pixels(kWidth), dpi_.Pixels(kHeight)};
  const ScreenPlace place = InMiddle(area, size, area);
  if (!Create(instance, {.style = WS_POPUP | WS_BORDER,
                         .extended_style = WS_EX_TOOLWINDOW,
                         .bounds = {place.left, place.top, place.left + place.width,
                                    place.top + place.height}})) {
    return;
  }
  CreateContents();
}

HWND SplashWindow::AddStatic(HWND parent, int control, DWORD style, int x, int y, int width,
                             int height, const FontHandle& font) {
  const HWND child =
      CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | style, dpi_.Pixels(x),
                      dpi_.Pixels(y), dpi_.Pixels(width), dpi_.Pixels(height), parent,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), instance_, nullptr);
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
  return child;
}

void SplashWindow::CreateContents() {
  AddStatic(Hwnd(), id::Image1, SS_ICON, kMargin, kMargin, kPicture, kPicture, font_);
  picture_ = ShowPicture(Hwnd(), id::Image1, id::ICON_SPLASH, kPicture, dpi_);

  const HWND title =
      AddStatic(Hwnd(), id::Lb_Splash_Title, SS_NOPREFIX, kLeft, 28, kBarWidth, 32, title_font_);
  SetWindowTextW(title, L"Tolvane");
  message_ = AddStatic(Hwnd(), id::Lb_msg, SS_NOPREFIX, kLeft, 70, kBarWidth, 20, font_);
  track_ = AddStatic(Hwnd(), id::Pic_ProgressBar_0, WS_CLIPCHILDREN, kLeft, 98, kBarWidth,
                     kBarHeight, font_);
  cover_ = AddStatic(track_, id::Pic_ProgressBar_1, 0, 0, 0, kBarWidth, kBarHeight, font_);
}

void SplashWindow::Lb_msg(StringView text) { SetWindowTextW(message_, Wide(String(text))); }

void SplashWindow::Progress(double fraction) {
  RECT track{};
  GetClientRect(track_, &track);
  const int left = static_cast<int>(RoundHalfToEven(track.right * fraction));
  SetWindowPos(cover_, nullptr, left, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void SplashWindow::Visible(bool visible) {
  leaving_ = !visible;
  // The window owns the region from here on; with none it is seen whole.
  SetWindowRgn(Hwnd(), visible ? nullptr : CreateRectRgn(0, 0, 0, 0), TRUE);
  if (!visible) return;
  ShowWindow(Hwnd(), SW_SHOW);
  UpdateWindow(Hwnd());
}

void SplashWindow::MakeWay() {
  if (leaving_) ShowWindow(Hwnd(), SW_HIDE);
}

LRESULT SplashWindow::HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_CTLCOLORSTATIC: {
      const auto child = reinterpret_cast<HWND>(lparam);
      if (child == track_) return reinterpret_cast<LRESULT>(track_brush_.Get());
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    }
    case WM_CLOSE:
      return 0;  // closed by the program when the start is over, not by Alt+F4
    default:
      return DefaultHandling(message, wparam, lparam);
  }
}

}  // namespace tolvane::platform::windows
