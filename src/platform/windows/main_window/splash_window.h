#pragma once

#include "platform/main_window.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/window_parts/base_window.h"
#include "platform/windows/window_parts/dpi.h"

namespace tolvane::platform::windows {

/// Form2, the progress splash: a picture, the program's name, the phase text, and a bar whose
/// moving part uncovers the filled track from the left.
class SplashWindow final : public BaseWindow<SplashWindow>, public Splash {
 public:
  static constexpr const wchar_t* kClassName = L"TolvaneSplash";
  static void AdjustClass(WNDCLASSEXW& window_class);

  /// Hidden, in the middle of the work area.
  explicit SplashWindow(HINSTANCE instance);
  ~SplashWindow() override { Destroy(); }

  void Lb_msg(StringView text) override;
  void Progress(double fraction) override;
  /// Without a spot on the screen, what is hidden stays the active window until MakeWay: the main
  /// window takes the activation from it.
  void Visible(bool visible) override;
  /// The main window is on the screen: disappears, if Visible(false) came before.
  void MakeWay();

  LRESULT HandleMessage(UINT message, WPARAM wparam, LPARAM lparam);

 private:
  HWND AddStatic(HWND parent, int control, DWORD style, int x, int y, int width, int height,
                 const FontHandle& font);
  void CreateContents();

  HINSTANCE instance_;
  Dpi dpi_;
  FontHandle font_;
  FontHandle title_font_;
  IconHandle picture_;
  BrushHandle track_brush_;
  HWND message_ = nullptr;  // children, not owned
  HWND track_ = nullptr;
  HWND cover_ = nullptr;
  bool leaving_ = false;
};

}  // namespace tolvane::platform::windows
