#include "platform/windows/window_parts/theme.h"

#include "platform/windows/system/system_libraries.h"

namespace tolvane::platform::windows {
namespace {

LoadedLibrary<Uxtheme>& Library() {
  static LoadedLibrary<Uxtheme> library;
  return library;
}

}  // namespace

void LoadVisualStyles() { Library().Load(SystemLibrary(u"uxtheme.dll")); }

Theme::Theme(HWND window, const wchar_t* control_class) {
  LoadVisualStyles();
  if (Library()) theme_ = Library()->OpenThemeData(window, control_class);
}

Theme::~Theme() {
  if (theme_ != nullptr) Library()->CloseThemeData(theme_);
}

void Theme::Draw(HDC context, int part, int state, const RECT& bounds) const {
  Library()->DrawThemeBackground(theme_, context, part, state, &bounds, nullptr);
}

SIZE Theme::Size(HDC context, int part, int state) const {
  SIZE size{};
  Library()->GetThemePartSize(theme_, context, part, state, nullptr, TS_DRAW, &size);
  return size;
}

}  // namespace tolvane::platform::windows
