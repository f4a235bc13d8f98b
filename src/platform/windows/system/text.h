#pragma once

#include <string>

#include "platform/string.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// The same units under Windows' own character type. `text` must end in NUL, as a String does.
[[nodiscard]] inline const wchar_t* Wide(const String& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
[[nodiscard]] inline const wchar_t* WideData(StringView text) {
  return reinterpret_cast<const wchar_t*>(text.data());
}
[[nodiscard]] inline wchar_t* WideData(String& text) {
  return reinterpret_cast<wchar_t*>(text.data());
}
[[nodiscard]] inline StringView FromWide(const wchar_t* text, std::size_t length) {
  return {reinterpret_cast<const char16_t*>(text), length};
}

/// Text of a window of this process or, for short texts, of another one.
[[nodiscard]] inline String WindowText(HWND window) {
  String text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
  const int length = GetWindowTextW(window, WideData(text), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace tolvane::platform::windows
